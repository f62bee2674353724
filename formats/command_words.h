// The command words that the GUI carries out itself. Every other word is left to the game.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/types.h"

namespace qen::command {

inline constexpr StringView kSetPage = u"setpage";
inline constexpr StringView kUndoPage = u"undopage";
inline constexpr StringView kAddRenderPage = u"addrenderpage";
inline constexpr StringView kRemRenderPage = u"remrenderpage";
inline constexpr StringView kAddActivePage = u"addactivepage";
inline constexpr StringView kRemActivePage = u"remactivepage";
inline constexpr StringView kRemoveAllFromRender = u"removeallfromrender";
inline constexpr StringView kToggleChecked = u"un/checked";
inline constexpr StringView kRadioGroup = u"radiogroup";
inline constexpr StringView kShow = u"visible/unvisible";
inline constexpr StringView kHide = u"unvisible/visible";
inline constexpr StringView kDisable = u"enable/disable";
inline constexpr StringView kSetText = u"settext";

}  // namespace qen::command

namespace qen::formats {

// Word and argument of a command stand on the two sides of the first of these; a second one ends the argument.
inline constexpr StringView kCommandSeparators = u":\n";

enum class Argument : std::uint8_t { None, Page, Widget };

struct CommandWord {
  StringView word;
  Argument argument;
  const char* help;  // what it does, in one line
};

inline constexpr std::array<CommandWord, 13> kCommandWords{{
    {command::kSetPage, Argument::Page, "shows that page alone; every active page leaves"},
    {command::kUndoPage, Argument::None, "goes back to the pages of the last snapshot"},
    {command::kAddRenderPage, Argument::Page, "draws the page, over the others"},
    {command::kRemRenderPage, Argument::Page, "draws the page no more"},
    {command::kAddActivePage, Argument::Page, "the page enters, and takes input from then on"},
    {command::kRemActivePage, Argument::Page, "the page leaves, and takes no more input"},
    {command::kRemoveAllFromRender, Argument::None, "draws no page"},
    {command::kToggleChecked, Argument::Widget, "checked becomes the opposite of the sender's"},
    {command::kRadioGroup, Argument::Widget, "unchecked; the sender is checked"},
    {command::kShow, Argument::Widget, "visible when the value is not 0"},
    {command::kHide, Argument::Widget, "hidden when the value is not 0"},
    {command::kDisable, Argument::Widget, "disabled when the value is not 0"},
    {command::kSetText, Argument::Widget, "the text, or the label, shows the text id that is the value"},
}};

// Null for a word that is left to the game.
constexpr const CommandWord* FindCommand(StringView word) {
  const auto* found = std::ranges::find(kCommandWords, word, &CommandWord::word);
  return found == kCommandWords.end() ? nullptr : found;
}

}  // namespace qen::formats
