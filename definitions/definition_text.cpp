#include "definitions/definition_text.h"

#include <memory>

#include "engine/system.h"
#include "engine/vfs.h"
#include "formats/definition_syntax.h"

namespace qen {
namespace {

std::optional<String> ReadWhole(const Char* file, std::uint32_t& size) {
  Char* buffer = nullptr;
  if (System::vfs == nullptr || file == nullptr || !System::vfs->ReadFile(file, buffer, size)) return std::nullopt;
  const std::unique_ptr<Char[]> owned(buffer);
  const StringView whole(buffer, size / sizeof(Char));
  return String(whole.substr(0, whole.find(u'\0')));
}

}  // namespace

std::optional<String> LoadDefinitionText(const Char* file) {
  std::uint32_t size = 0;
  return ReadWhole(file, size);
}

std::optional<String> LoadMarkedDefinitionText(const Char* file, bool& tooShort) {
  std::uint32_t size = 0;
  std::optional<String> text = ReadWhole(file, size);
  tooShort = text.has_value() && size < formats::kShortestFile;
  if (tooShort) return std::nullopt;
  if (text && text->starts_with(formats::kByteOrderMark)) text->erase(0, 1);
  return text;
}

}  // namespace qen
