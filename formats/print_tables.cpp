// Prints the tables of this folder: those of the documents, and the words for the fuzz programs.
// A line "[docs NAME]" or "[words NAME]" stands in front of each.
#include <cstdio>
#include <iterator>
#include <string>

#include "formats/command_words.h"
#include "formats/definition_words.h"

namespace qen::formats {
namespace {

// The words of definitions are ASCII.
std::string Narrow(StringView text) { return {text.begin(), text.end()}; }

const char* Name(Value value) {
  constexpr const char* kNames[] = {"whole",          "0 or 1",       "decimal",      "colour",    "text id",
                                    "text",           "command",      "face, block",  "block",     "scene file",
                                    "animation file", "sound file",   "picture file", "page file", "bag file",
                                    "style file",     "language file"};
  static_assert(std::size(kNames) == static_cast<std::size_t>(Value::Language) + 1);
  return kNames[static_cast<std::size_t>(value)];
}

// What stands behind the keyword, and from where to where it makes sense.
std::string Values(const Keyword& keyword) {
  constexpr Range kAny;
  std::string text = Name(keyword.value);
  if (keyword.range.least == kAny.least) return text;
  text += ", " + std::to_string(keyword.range.least);
  return text + (keyword.range.most == kAny.most ? " or more" : " to " + std::to_string(keyword.range.most));
}

std::string Kinds(StringView letters) {
  if (letters == kAnyWidget) return "any widget";
  if (letters == kPageWidgets) return "any but bag slots";
  std::string names;
  for (const WidgetKind& kind : kWidgetKinds) {
    if (letters.find(kind.letter) == StringView::npos) continue;
    names += (names.empty() ? "" : ", ") + std::string(kind.names);
  }
  return names;
}

// As code, unless it is a sentence or nothing.
std::string Code(StringView word) {
  const bool code = !word.empty() && word.find(u' ') == StringView::npos;
  std::string text = Narrow(word);
  if (code) text.insert(text.begin(), '`');
  if (code) text.push_back('`');
  return text;
}

using Keywords = std::span<const Keyword>;

void PrintTable(Keywords keywords, bool kinds) {
  const bool values = std::ranges::any_of(keywords, [](const Keyword& keyword) { return !keyword.otherwise.empty(); });
  std::printf("| keyword | value |%s%s sets |\n|---|---|%s%s---|\n", kinds ? " of |" : "", values ? " default |" : "",
              kinds ? "---|" : "", values ? "---|" : "");
  for (const Keyword& keyword : keywords) {
    std::printf("| %s | %s |", Code(keyword.word).c_str(), Values(keyword).c_str());
    if (kinds) std::printf(" %s |", Kinds(keyword.widgets).c_str());
    if (values) std::printf(" %s |", Code(keyword.otherwise).c_str());
    std::printf(" %s |\n", keyword.help);
  }
}

void PrintPageCommands() {
  std::printf("| word | does |\n|---|---|\n");
  for (const CommandWord& command : kCommandWords) {
    if (command.argument == Argument::Widget) continue;
    std::printf("| %s | %s |\n", Code(command.word).c_str(), command.help);
  }
}

struct Table {
  const char* name;
  Keywords keywords;
};

const Table kTables[] = {
    {"description", kDescription},
    {"language", kLanguage},
    {"header", kPageHeader},
    {"item", kItem},
    {"text", kText},
    {"font", kFont},
    {"entry", kEntry},
    {"style", kStyle},
};

void PrintAll() {
  for (const Table& table : kTables) {
    std::printf("[docs %s]\n", table.name);
    PrintTable(table.keywords, table.keywords.data() == kItem.data());
    std::printf("[words %s]\n", table.name);
    for (const Keyword& keyword : table.keywords) std::printf("\"%s\"\n", Narrow(keyword.word).c_str());
  }
  std::printf("[docs pagecommands]\n");
  PrintPageCommands();
  std::printf("[words commands]\n");
  for (const CommandWord& command : kCommandWords) std::printf("\"%s\"\n", Narrow(command.word).c_str());
}

}  // namespace
}  // namespace qen::formats

int main() { qen::formats::PrintAll(); }
