#include "tests/host/zip_file.h"

#include <cstdint>
#include <fstream>

namespace qen::host {
namespace {

constexpr std::uint32_t kVersion = 20;
constexpr std::uint32_t kUtf8Names = 0x800;
constexpr std::uint32_t kAnyDate = 0x5821;

struct Field {
  std::uint32_t value;
  int size;
};

void Append(std::string& bytes, std::initializer_list<Field> fields) {
  for (const Field& field : fields) {
    for (int i = 0; i < field.size; ++i) bytes += static_cast<char>(field.value >> (8 * i));
  }
}

std::uint32_t Crc32(const std::string& bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1U ^ (0xEDB88320U & (0U - (crc & 1U)));
  }
  return ~crc;
}

std::uint32_t Size(const std::string& text) { return static_cast<std::uint32_t>(text.size()); }

// What the two headers of a file have in common.
void AppendDescription(std::string& bytes, const ZipEntry& entry) {
  Append(bytes, {{kVersion, 2},
                 {kUtf8Names, 2},
                 {0, 2},
                 {0, 2},
                 {kAnyDate, 2},
                 {Crc32(entry.content), 4},
                 {Size(entry.content), 4},
                 {Size(entry.content), 4},
                 {Size(entry.name), 2},
                 {0, 2}});
}

}  // namespace

void WriteZip(const std::filesystem::path& file, const std::vector<ZipEntry>& entries) {
  std::string archive;
  std::string directory;
  for (const ZipEntry& entry : entries) {
    Append(directory, {{0x02014B50, 4}, {kVersion, 2}});
    AppendDescription(directory, entry);
    Append(directory, {{0, 2}, {0, 2}, {0, 2}, {0, 4}, {Size(archive), 4}});
    directory += entry.name;
    Append(archive, {{0x04034B50, 4}});
    AppendDescription(archive, entry);
    archive += entry.name + entry.content;
  }
  const std::uint32_t start = Size(archive);
  const auto count = static_cast<std::uint32_t>(entries.size());
  archive += directory;
  Append(archive, {{0x06054B50, 4}, {0, 2}, {0, 2}, {count, 2}, {count, 2}, {Size(directory), 4}, {start, 4}, {0, 2}});
  std::ofstream(file, std::ios::binary) << archive;
}

}  // namespace qen::host
