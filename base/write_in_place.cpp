#include "base/write_in_place.h"

#include <array>
#include <vector>

#include "base/replacing.h"
#include "base/whole_file.h"

namespace qen::base {
namespace {

bool ReadAll(std::FILE* file, std::vector<char>& bytes) {
  std::array<char, 65536> block{};
  while (const std::size_t size = std::fread(block.data(), 1, block.size(), file)) {
    bytes.insert(bytes.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size));
  }
  return std::ferror(file) == 0;
}

// Over what is there, so that no room is given up that the old bytes may need again.
bool Overwrite(std::FILE* file, std::span<const char> bytes) {
  std::clearerr(file);
  return std::fseek(file, 0, SEEK_SET) == 0 && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() &&
         std::fflush(file) == 0 && Truncate(file, bytes.size()) && SyncToDisk(file);
}

}  // namespace

bool WriteInPlace(const std::filesystem::path& path, std::span<const char> bytes) {
  OpenedFile file = OpenFile(path, "r+b");
  std::vector<char> old;
  if (file == nullptr || !ReadAll(file.get(), old)) return false;
  if (Overwrite(file.get(), bytes)) return true;
  Overwrite(file.get(), old);
  return false;
}

}  // namespace qen::base
