#include "host/app/data_check.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/utf.h"
#include "host/app/definition_tokens.h"

namespace qen::host {
namespace {

using Tokens = std::vector<String>;

constexpr std::array<StringView, 11> kFileKeys{u"lang",       u"tool",        u"name",        u"bagname",
                                               u"anim",       u"anim_in",     u"anim_out",    u"onmousewav",
                                               u"onclickwav", u"onaniminwav", u"onanimoutwav"};

// The keys in front of the item blocks with their values, in their order. Other words are passed over.
template <class Visit>
void ForEachValue(const Tokens& tokens, Visit visit) {
  for (std::size_t i = 0; i + 1 < tokens.size() && tokens[i] != u"item"; ++i) {
    if (std::ranges::find(kFileKeys, tokens[i]) == kFileKeys.end()) continue;
    visit(tokens[i], tokens[i + 1]);
    ++i;
  }
}

class DataCheck {
 public:
  DataCheck(base::IFileBackend& files, base::ISceneBackend& scenes) : files_(files), scenes_(scenes) {}

  std::string CheckDescription(const String& file) {
    const auto tokens = ReadTokens(files_, file);
    if (!tokens) return Unreadable(file);
    std::string fault;
    ForEachValue(*tokens, [&](const String& key, const String& value) {
      if (!fault.empty()) return;
      if (key == u"name" || key == u"bagname") fault = CheckPage(value);
      if ((key == u"lang" || key == u"tool") && !files_.Read(value, bytes_)) fault = Unreadable(value);
    });
    return fault;
  }

 private:
  static std::string Unreadable(const String& file) { return base::ToUtf8(file) + " cannot be read"; }

  std::string CheckPage(const String& file) {
    const auto tokens = ReadTokens(files_, file);
    if (!tokens) return Unreadable(file);
    if (!BeginsWithName(*tokens)) return base::ToUtf8(file) + kNoName;
    std::string fault;
    ForEachValue(*tokens, [&](const String& key, const String& value) {
      if (!fault.empty()) return;
      if (key == u"name") fault = CheckScene(value);
      if (key.starts_with(u"anim")) fault = CheckAnimation(value);
    });
    return fault;
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
