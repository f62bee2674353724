#include "host/check/pseudo_language_files.h"

#include <algorithm>

#include "analysis/check.h"
#include "analysis/pseudo.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"
#include "formats/reading.h"

namespace qen::host {
namespace {

using formats::Reading;
namespace word = formats::word;

// A section with all texts of the first language; empty when the file has one of that name.
String PseudoSection(const Reading& reading) {
  StringView first;
  String section = u"\n";
  ((section += word::kLang) += u' ') += analysis::kPseudoLanguage;
  section += u"\n{\n";
  const auto nameOf = [&reading](std::size_t block) {
    const std::size_t name = reading.blocks[block].name;
    return name == formats::kNone ? StringView() : reading.tokens[name].value;
  };
  for (const formats::TextEntry& entry : reading.texts) {
    const StringView language = nameOf(entry.block);
    if (language == analysis::kPseudoLanguage) return {};
    if (first.empty()) first = language;
    if (language != first || entry.value == formats::kNone) continue;
    String words = analysis::PseudoText(reading.tokens[entry.value].value);
    std::ranges::replace(words, u'"', u'\'');  // nothing stands for one in quotes
    section += word::kTextPrefix;
    section += StringConverter::ToString(entry.id) + u" \"" + words + u"\"\n";
  }
  return section + u"}\n";
}

}  // namespace

bool PseudoLanguageFiles::Read(StringView name, std::vector<std::uint8_t>& bytes) {
  if (!files_.Read(name, bytes)) return false;
  if (name.empty() || name == description_ || name != LanguageFile()) return true;
  const formats::SourceText text(bytes);
  const Reading reading = formats::ReadDefinition(formats::FileKind::Language, text.Text());
  const std::size_t end = std::min(text.Text().find(u'\0'), text.Text().size());
  bytes = text.Edited({{{end, end}, PseudoSection(reading)}});
  return true;
}

String PseudoLanguageFiles::LanguageFile() {
  std::vector<std::uint8_t> bytes;
  if (!files_.Read(description_, bytes)) return {};
  const formats::SourceText text(std::move(bytes));
  const Reading reading = formats::ReadDefinition(formats::FileKind::Description, text.Text());
  String file;
  for (const formats::Statement& statement : reading.statements) {
    const bool named = statement.keyword->value == formats::Value::Language && statement.value != formats::kNone;
    if (named) file = reading.tokens[statement.value].value;
  }
  return file;
}

}  // namespace qen::host
