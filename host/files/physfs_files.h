// Folders and archives as one tree of files, through PhysicsFS.
#pragma once

#include <filesystem>
#include <vector>

#include "base/backends/file_backend.h"
#include "host/files/folded_tree.h"

namespace qen::host {

// One at a time. Links in the data are followed.
class PhysfsFiles final : public base::IFileBackend {
 public:
  PhysfsFiles();
  ~PhysfsFiles() override;
  PhysfsFiles(const PhysfsFiles&) = delete;
  PhysfsFiles& operator=(const PhysfsFiles&) = delete;

  // Adds a folder, or an archive of a kind that PhysicsFS knows, whose root becomes the root of the tree too. Its files
  // hide those of the same name that were added before. Throws std::runtime_error, naming it, when it cannot be read.
  void Mount(const std::filesystem::path& place);

  // The places that were added, in that order.
  [[nodiscard]] std::vector<std::filesystem::path> Places() const;

  // Opens every place again: an archive may have been replaced. Throws std::runtime_error, naming it, when one cannot
  // be read, which then has no files until this is called again.
  void OpenAnew();

  // A file whose name is spelled exactly comes before one that differs in letter case, in the same folder or archive.
  bool Read(StringView name, std::vector<std::uint8_t>& bytes) override;

 private:
  struct MountedPlace {
    std::filesystem::path place;
    FoldedTree tree;
  };

  std::vector<MountedPlace> mounts_;
};

}  // namespace qen::host
