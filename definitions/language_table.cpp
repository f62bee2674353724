#include "definitions/language_table.h"

#include "definitions/definition_text.h"
#include "engine/string_converter.h"
#include "formats/definition_syntax.h"
#include "formats/definition_words.h"
#include "formats/text_escapes.h"

namespace qen {
namespace {

using Texts = std::unordered_map<std::uint32_t, String>;

constexpr StringView kSection = formats::word::kLang;
constexpr StringView kEntryPrefix = formats::word::kTextPrefix;

void ReadSection(CGUIParser& parser, Texts& texts) {
  for (String token = parser.NextToken(); !token.empty(); token = parser.NextToken()) {
    if (token.starts_with(kEntryPrefix)) {
      const std::int32_t id = StringConverter::ParseInt(StringView(token).substr(kEntryPrefix.size()));
      token = parser.NextToken();
      if (token.empty()) return;
      token = formats::Unescaped(token);
      texts.try_emplace(static_cast<std::uint32_t>(id), token);
    }
    if (token == formats::kClose) return;
  }
}

}  // namespace

LanguageTable& ModuleLanguageTable() {
  static LanguageTable table;
  return table;
}

void LanguageTable::Load(const Char* file, StringView language) {
  Clear();
  const std::optional<String> text = LoadDefinitionText(file);
  if (!text) return;
  DefinitionPass pass(*text);
  CGUIParser& parser = pass.parser;
  for (String token = parser.NextToken(); !token.empty(); token = parser.NextToken()) {
    if (token == kSection && parser.NextToken() == language) ReadSection(parser, texts_);
  }
}

const String& LanguageTable::Words(std::int32_t id) const {
  static const String notAvailable = u"N/A";
  if (id < 0) return notAvailable;
  const auto found = texts_.find(static_cast<std::uint32_t>(id));
  return found == texts_.end() ? notAvailable : found->second;
}

bool LanguageTable::Replace(std::int32_t id, const String& words) {
  const auto found = id < 0 ? texts_.end() : texts_.find(static_cast<std::uint32_t>(id));
  if (found == texts_.end()) return false;
  found->second = words;
  return true;
}

std::vector<String> ReadLanguageNames(const Char* file) {
  std::vector<String> names;
  const std::optional<String> text = LoadDefinitionText(file);
  if (!text) return names;
  DefinitionPass pass(*text);
  for (String token = pass.parser.NextToken(); !token.empty(); token = pass.parser.NextToken()) {
    if (token == kSection) names.push_back(pass.parser.NextToken());
  }
  return names;
}

}  // namespace qen
