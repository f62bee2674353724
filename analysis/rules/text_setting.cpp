#include <algorithm>
#include <set>
#include <unordered_set>
#include <utility>

#include "analysis/rules/command_list.h"
#include "analysis/words.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

bool IsWord(const Command& command, StringView word) { return command.known != nullptr && command.known->word == word; }

bool HasLabel(const SceneOutline& scene, std::size_t node) {
  return node != formats::kNone && scene.FindChild(node, u"text") != formats::kNone;
}

bool HasText(const SceneOutline& scene, const Widget& widget) {
  if (StringView(u"tl").find(widget.letter) != StringView::npos) return true;
  return StringView(u"bc").find(widget.letter) != StringView::npos && HasLabel(scene, widget.node);
}

class TextSettingCheck {
 public:
  TextSettingCheck(const Gui& gui, const std::vector<Command>& commands, Findings& findings)
      : gui_(gui), findings_(findings) {
    hasTextZero_ =
        std::ranges::any_of(gui.languages, [](const Language& language) { return language.texts.contains(0); });
    for (std::size_t page = 0; page < gui.pages.size(); ++page) FindGiving(page);
    for (const Command& command : commands) FindChecked(command);
  }

  void Check(const Command& command) {
    if (command.isTold || !IsWord(command, command::kSetText)) return;
    const auto targets = gui_.widgetsByName.find(String(command.argument));
    if (targets == gui_.widgetsByName.end()) return;
    const bool canBeSet = std::ranges::any_of(targets->second, [this](const WidgetPlace& place) {
      return HasText(gui_.pages[place.page].scene, gui_.At(place));
    });
    if (!canBeSet) {
      Add(command, Quoted(command.argument) + " has no text to be set");
    } else if (command.sender != nullptr && !Gives(command)) {
      Add(command, Quoted(command.sender->name) + (IsEntry(command) ? " gives no text here: the entry has no commentid"
                                                                    : " gives no text, so that text 0 is shown"));
    }
  }

 private:
  [[nodiscard]] bool IsEntry(const Command& command) const {
    return gui_.pages[command.page].source->Reading().blocks[command.block].scope == formats::Scope::Entry;
  }

  void Add(const Command& command, std::string message) {
    findings_.Add(Rule::NothingToSet, *gui_.pages[command.page].source, command.token, std::move(message));
  }

  // Blocks with a text for others, and of widgets that are checked from the beginning.
  void FindGiving(std::size_t page) {
    const Source& source = *gui_.pages[page].source;
    for (const formats::Statement& statement : source.Reading().statements) {
      const StringView word = statement.keyword->word;
      if (word != formats::word::kCommentId && word != formats::word::kChecked) continue;
      const std::int32_t value = StringConverter::ParseInt(source.ValueOf(statement));
      if (word == formats::word::kCommentId ? value >= 0 : value != 0) giving_.emplace(page, statement.block);
    }
  }

  void FindChecked(const Command& command) {
    if (IsWord(command, command::kToggleChecked)) checked_.insert(command.argument);
    if (IsWord(command, command::kRadioGroup) && command.sender != nullptr) checked_.insert(command.sender->name);
  }

  // False only where that is certain. A button gives its label's text while it is checked.
  [[nodiscard]] bool Gives(const Command& command) const {
    const Widget& sender = *command.sender;
    const SceneOutline& scene = gui_.pages[command.page].scene;
    if (IsEntry(command)) return giving_.contains({command.page, command.block});
    if (hasTextZero_) return true;
    if (sender.letter == u'c') {
      const std::size_t side = scene.FindChild(sender.node, u"checked");
      return side == formats::kNone || HasLabel(scene, side);
    }
    if (sender.letter != u'b') return sender.letter != u'p' && sender.letter != u's';
    const bool isChecked = checked_.contains(sender.name) || std::ranges::any_of(sender.blocks, [&](std::size_t block) {
                             return giving_.contains({command.page, block});
                           });
    return isChecked && HasLabel(scene, sender.node);
  }

  const Gui& gui_;
  Findings& findings_;
  bool hasTextZero_ = false;
  std::set<std::pair<std::size_t, std::size_t>> giving_;  // page and block
  std::unordered_set<StringView> checked_;                // widgets that commands check
};

}  // namespace

void CheckTextSetting(const Gui& gui, const std::vector<Command>& commands, Findings& findings) {
  TextSettingCheck check(gui, commands, findings);
  for (const Command& command : commands) check.Check(command);
}

}  // namespace qen::analysis
