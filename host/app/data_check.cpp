#include "host/app/data_check.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <vector>

#include "base/utf.h"
#include "engine/parser.h"
#include "engine/system.h"
#include "engine/vfs.h"

namespace qen::host {
namespace {

constexpr const Char* kSeparators = u" \t\n\r;\uFEFF";

std::optional<String> ReadDefinition(const String& file) {
  Char* buffer = nullptr;
  std::uint32_t size = 0;
  if (!System::vfs->ReadFile(file.c_str(), buffer, size)) return std::nullopt;
  const std::unique_ptr<Char[]> owned(buffer);
  return String(buffer, size / sizeof(Char));
}

// The values of the keys, in their order; a definition's item blocks are not looked into.
template <class Visit>
void ForEachValue(const String& text, Visit visit) {
  std::basic_istringstream<Char> stream(text);
  Parser parser(stream, kSeparators);
  for (String key = parser.nextlow(false); !key.empty() && key != u"item"; key = parser.nextlow(false)) {
    visit(key, parser.nextlow(false));
  }
}

class DataCheck {
 public:
  DataCheck(base::IFileBackend& files, base::ISceneBackend& scenes) : files_(files), scenes_(scenes) {}

  std::string CheckDescription(const String& file) {
    const auto text = ReadDefinition(file);
    if (!text) return Unreadable(file);
    std::string fault;
    ForEachValue(*text, [&](const String& key, const String& value) {
      if (!fault.empty()) return;
      if (key == u"name" || key == u"bagname") fault = CheckPage(value);
      if ((key == u"lang" || key == u"tool") && !ReadDefinition(value)) fault = Unreadable(value);
    });
    return fault;
  }

 private:
  static std::string Unreadable(const String& file) { return base::ToUtf8(file) + " cannot be read"; }

  std::string CheckPage(const String& file) {
    const auto text = ReadDefinition(file);
    if (!text) return Unreadable(file);
    std::string fault;
    bool named = false;
    ForEachValue(*text, [&](const String& key, const String& value) {
      if (!fault.empty()) return;
      if (key == u"name") fault = CheckScene(value);
      if (key.starts_with(u"anim")) fault = CheckAnimation(value);
      named = named || key == u"name";
    });
    return !named && fault.empty() ? base::ToUtf8(file) + " names no scene" : fault;
  }

  std::string CheckScene(const String& file) {
    String error;
    if (!files_.Read(file, bytes_)) return Unreadable(file);
    return scenes_.ParseScene(file, bytes_, false, error) ? "" : base::ToUtf8(file + u": " + error);
  }

  std::string CheckAnimation(const String& file) {
    String error;
    if (!files_.Read(file, bytes_)) return Unreadable(file);
    return scenes_.ParseAnimation(file, bytes_, error) ? "" : base::ToUtf8(file + u": " + error);
  }

  base::IFileBackend& files_;
  base::ISceneBackend& scenes_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace

std::string FindFault(const String& description, base::IFileBackend& files, base::ISceneBackend& scenes) {
  return DataCheck(files, scenes).CheckDescription(description);
}

}  // namespace qen::host
