#include "formats/backup.h"

#include <cstdio>

#include "engine/platform.h"
#include "engine/string_converter.h"

namespace qen::formats {
namespace {

constexpr StringView kBackupFolder = u"bak\\";

bool CanBeRead(const String& path) {
  std::FILE* file = platform::_wfopen(path.c_str(), u"rb");
  if (file == nullptr) return false;
  std::fclose(file);
  return true;
}

// The file's name in its folder of backups. `visit` is called with each folder on the way.
template <class Visit>
String InBackupFolder(StringView path, Visit visit) {
  const std::vector<String> pieces = SplitString(path, u"\\/", 0);
  if (pieces.empty()) return {};
  String backup;
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    backup += pieces[i];
    backup += u'\\';
    visit(backup);
  }
  backup += kBackupFolder;
  visit(backup);
  return backup + pieces.back();
}

String FreeName(const String& name) {
  String candidate = name + u"0";
  for (std::int32_t number = 1; CanBeRead(candidate); ++number) candidate = name + StringConverter::ToString(number);
  return candidate;
}

}  // namespace

String NextBackup(StringView path) {
  const String name = InBackupFolder(path, [](const String&) {});
  return name.empty() ? name : FreeName(name);
}

void MakeBackup(StringView path) {
  const String name = InBackupFolder(path, [](const String& folder) { platform::_wmkdir(folder.c_str()); });
  if (!name.empty()) platform::CopyFileW(String(path).c_str(), FreeName(name).c_str(), false);
}

}  // namespace qen::formats
