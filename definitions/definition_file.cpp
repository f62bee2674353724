#include "definitions/definition_file.h"

#include <cstdio>
#include <vector>

#include "engine/platform.h"
#include "engine/string_converter.h"
#include "engine/system.h"

namespace qen {
namespace {

constexpr StringView kBackupFolder = u"bak\\";
constexpr std::size_t kEndZeros = 3;  // bytes

bool CanBeRead(const String& path) {
  std::FILE* file = platform::_wfopen(path.c_str(), u"rb");
  if (file == nullptr) return false;
  std::fclose(file);
  return true;
}

String FreeBackupName(const String& name) {
  String candidate = name + u"0";
  for (std::int32_t number = 1; CanBeRead(candidate); ++number) candidate = name + StringConverter::ToString(number);
  return candidate;
}

void AppendUnit(std::vector<std::uint8_t>& bytes, Char unit) {
  bytes.push_back(static_cast<std::uint8_t>(unit & 0xFFU));
  bytes.push_back(static_cast<std::uint8_t>(unit >> 8U));
}

}  // namespace

String ResolvePath(StringView name) {
  if (name.size() >= 2 && name[1] == u':') return String(name);
  String path = System::GetBasePath();
  path += name;
  return path;
}

void MakeBackup(const String& path) {
  const std::vector<String> pieces = SplitString(path, u"\\/", 0);
  if (pieces.empty()) return;
  String backup;
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    backup += pieces[i];
    backup += u'\\';
    platform::_wmkdir(backup.c_str());
  }
  backup += kBackupFolder;
  platform::_wmkdir(backup.c_str());
  backup += pieces.back();
  platform::CopyFileW(path.c_str(), FreeBackupName(backup).c_str(), false);
}

bool WriteDefinitionFile(const String& path, StringView text) {
  constexpr Char kByteOrderMark = 0xFEFF;
  std::vector<std::uint8_t> bytes;
  bytes.reserve((text.size() + 1) * sizeof(Char) + kEndZeros);
  AppendUnit(bytes, kByteOrderMark);
  for (const Char unit : text) AppendUnit(bytes, unit);
  bytes.insert(bytes.end(), kEndZeros, 0);
  return platform::SaveWholeFile(path.c_str(), bytes.data(), bytes.size());
}

}  // namespace qen
