#include "analysis/rules/command_list.h"

#include <algorithm>

#include "analysis/rules/command_rest.h"
#include "engine/string_converter.h"

namespace qen::analysis {
namespace {

using formats::kNone;

// As the module cuts it.
void SplitCommand(StringView text, Command& command) {
  const std::size_t first = text.find_first_of(formats::kCommandSeparators);
  command.word = text.substr(0, first);
  if (first == StringView::npos) return;
  const StringView behind = text.substr(first + 1);
  const std::size_t second = behind.find_first_of(formats::kCommandSeparators);
  command.argument = behind.substr(0, second);
  if (second != StringView::npos) command.third = behind.substr(second + 1);
}

const Widget* SenderOf(const Page& page, std::size_t block) {
  const auto& blocks = page.source->Reading().blocks;
  while (blocks[block].scope != formats::Scope::Item && blocks[block].parent != kNone) block = blocks[block].parent;
  if (blocks[block].name == kNone) return nullptr;
  const auto found = page.widgetsByName.find(ttolowercase(page.source->ValueAt(blocks[block].name)));
  return found == page.widgetsByName.end() ? nullptr : &page.widgets[found->second];
}

Command MakeCommand(const Gui& gui, std::size_t page, const formats::Statement& statement) {
  const Source& source = *gui.pages[page].source;
  const StringView text = source.ValueAt(statement.value);
  Command command{.page = page, .token = statement.value, .block = statement.block};
  command.sender = SenderOf(gui.pages[page], statement.block);
  SplitCommand(text, command);
  command.rest = RestOfCommand(source, statement);
  if (command.rest != kNone) {
    const StringView rest = source.ValueAt(command.rest);
    command.argument = rest.substr(rest.starts_with(u':') ? 1 : 0);
  }
  command.known = formats::FindCommand(command.word);
  const bool isBroken = std::ranges::binary_search(source.Reading().broken, statement.value);
  command.isTold = isBroken || text.find(u'\n') != StringView::npos;
  return command;
}

}  // namespace

std::vector<Command> CollectCommands(const Gui& gui) {
  std::vector<Command> commands;
  for (std::size_t page = 0; page < gui.pages.size(); ++page) {
    for (const formats::Statement& statement : gui.pages[page].source->Reading().statements) {
      const bool isCommand = statement.keyword->value == formats::Value::Command;
      if (isCommand && statement.value != kNone) commands.push_back(MakeCommand(gui, page, statement));
    }
  }
  return commands;
}

formats::Range16 RangeOf(const Source& source, StringView part) {
  const auto begin = static_cast<std::size_t>(part.data() - source.Text().Text().data());
  return {begin, begin + part.size()};
}

}  // namespace qen::analysis
