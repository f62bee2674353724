#include "host/app/data_check.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/utf.h"
#include "formats/definition_words.h"
#include "host/app/definition_tokens.h"

namespace qen::host {
namespace {

using Tokens = std::vector<String>;
using formats::Value;

// The keys in front of the item blocks: what each value is, and the value, in their order. Other words are passed over.
template <class Visit>
void ForEachValue(const Tokens& tokens, std::span<const formats::Keyword> keys, Visit visit) {
  for (std::size_t i = 0; i + 1 < tokens.size() && tokens[i] != formats::word::kItem; ++i) {
    const formats::Keyword* key = formats::Find(keys, tokens[i]);
    if (key != nullptr) visit(key->value, tokens[++i]);
  }
}

class DataCheck {
 public:
  DataCheck(base::IFileBackend& files, base::ISceneBackend& scenes) : files_(files), scenes_(scenes) {}

  std::string CheckDescription(const String& description) {
    const auto tokens = ReadTokens(files_, description);
    if (!tokens) return Unreadable(description);
    std::string fault;
    ForEachValue(*tokens, formats::kDescription, [&](Value kind, const String& file) {
      if (!fault.empty()) return;
      if (kind == Value::Page || kind == Value::Bag) {
        fault = CheckPage(file);
      } else if (!files_.Read(file, bytes_)) {
        fault = Unreadable(file);
      }
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
    ForEachValue(*tokens, formats::kPageHeader, [&](Value kind, const String& value) {
      if (!fault.empty()) return;
      if (kind == Value::Scene) fault = CheckScene(value);
      if (kind == Value::Animation) fault = CheckAnimation(value);
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
