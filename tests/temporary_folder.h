// A folder that is gone after the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace qen {

class TemporaryFolder {
 public:
  TemporaryFolder() { std::filesystem::create_directory(path_); }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  // Writes a file, with the folders it is in.
  void Write(const std::filesystem::path& name, std::string_view content) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << content;
  }
  [[nodiscard]] std::string Read(const std::filesystem::path& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  const std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("gui_tests_" + std::to_string(std::random_device()()));
};

}  // namespace qen
