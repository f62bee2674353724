#include "tests/host/temporary_folder.h"

#include <fstream>
#include <iterator>
#include <random>

namespace qen::host {
namespace {

namespace fs = std::filesystem;

fs::path MakeFolder() {
  std::random_device random;
  fs::path path;
  do {
    path = fs::temp_directory_path() / ("host_tests_" + std::to_string(random()));
  } while (!fs::create_directory(path));
  return path;
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(MakeFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void TemporaryFolder::Write(const std::string& name, std::string_view content) const {
  const fs::path file = path_ / name;
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
}

std::string TemporaryFolder::Read(const std::string& name) const {
  std::ifstream file(path_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace qen::host
