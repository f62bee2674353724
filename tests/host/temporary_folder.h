// A folder that is gone after the test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qen::host {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  // Writes a file, with the folders it is in.
  void Write(const std::string& name, std::string_view content) const;
  [[nodiscard]] std::string Read(const std::string& name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace qen::host
