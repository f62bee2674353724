// Zip archives for tests.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qen::host {

struct ZipEntry {
  std::string name;  // UTF-8
  std::string content;
};

// Writes an archive whose files are not compressed.
void WriteZip(const std::filesystem::path& file, const std::vector<ZipEntry>& entries);

}  // namespace qen::host
