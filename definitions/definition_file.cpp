#include "definitions/definition_file.h"

#include <vector>

#include "engine/platform.h"
#include "engine/system.h"
#include "formats/definition_syntax.h"

namespace qen {
namespace {

constexpr std::size_t kEndZeros = 3;  // bytes

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

bool WriteDefinitionFile(const String& path, StringView text) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve((text.size() + 1) * sizeof(Char) + kEndZeros);
  AppendUnit(bytes, formats::kByteOrderMark);
  for (const Char unit : text) AppendUnit(bytes, unit);
  bytes.insert(bytes.end(), kEndZeros, 0);
  return platform::SaveWholeFile(path.c_str(), bytes.data(), bytes.size());
}

}  // namespace qen
