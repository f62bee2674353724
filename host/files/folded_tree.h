// Finds files without regard to letter case.
#pragma once

#include <chrono>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/types.h"

namespace qen::host {

// Knows the folders below one PhysicsFS folder, each listed when it is first looked into. A folder in which something
// was not found is listed again, at most once a second, so that files that appear later are found.
class FoldedTree {
 public:
  explicit FoldedTree(std::string root) : root_(std::move(root)) {}

  // The PhysicsFS path as it is written, whether it exists or not.
  [[nodiscard]] std::string ExactPath(std::span<const String> parts) const;

  // What exists under the path in any letter case, in the order of the names' bytes.
  [[nodiscard]] std::vector<std::string> Find(std::span<const String> parts);

  void Forget() { folders_.clear(); }  // lists every folder again

 private:
  using Clock = std::chrono::steady_clock;
  using Paths = std::vector<std::string>;

  struct Folder {
    std::unordered_map<String, Paths> entries;  // by lower-case name
    Clock::time_point listed;
  };

  const Paths* FindEntry(const String& key, const Paths& places, const String& name);

  std::string root_;
  std::unordered_map<String, Folder> folders_;  // by lower-case path
};

}  // namespace qen::host
