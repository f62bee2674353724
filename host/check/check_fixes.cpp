#include "host/check/check_fixes.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

#include "analysis/printers.h"
#include "base/file_paths.h"
#include "base/utf.h"
#include "engine/platform.h"
#include "formats/backup.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> ReadDisk(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Where the file of the data is on the disk. Throws when it came from an archive.
fs::path PlaceOf(const std::string& file, PhysfsFiles& files) {
  std::vector<std::uint8_t> bytes;
  files.Read(base::ToUtf16(file), bytes);
  // Later places hide earlier ones.
  const std::vector<fs::path> places = files.Places();
  for (auto place = places.rbegin(); place != places.rend(); ++place) {
    fs::path path = base::ResolvePath(base::ToUtf16((*place / file).string())).lexically_normal();
    std::error_code problem;
    if (fs::is_directory(*place, problem) && fs::is_regular_file(path, problem) && ReadDisk(path) == bytes) return path;
  }
  throw std::runtime_error("cannot fix " + file + ": it is in an archive");
}

void Write(const fs::path& path, const std::vector<std::uint8_t>& bytes) {
  const String name = base::ToUtf16(path.string());
  const fs::path backup = base::ResolvePath(formats::NextBackup(name)).lexically_normal();
  formats::MakeBackup(name);
  if (!platform::SaveWholeFile(name.c_str(), bytes.data(), bytes.size())) {
    throw std::runtime_error("cannot write " + path.string());
  }
  std::fprintf(stderr, "what was in %s is %s\n", path.string().c_str(), backup.string().c_str());
}

}  // namespace

bool FixFiles(const analysis::Report& report, PhysfsFiles& files) {
  std::set<std::string> names;
  for (const analysis::Finding& finding : report.findings) {
    if (!finding.fix.empty()) names.insert(finding.file);
  }
  for (const std::string& name : names) {
    const auto fixed = analysis::ApplyFixes(name, report.findings, files);
    if (!fixed) continue;
    Write(PlaceOf(name, files), fixed->bytes);
    for (const analysis::Finding* finding : fixed->mended) {
      std::fprintf(stderr, "fixed %s\n", analysis::PrintLine(*finding).c_str());
    }
  }
  return !names.empty();
}

}  // namespace qen::host
