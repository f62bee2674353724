// The command words that the GUI carries out itself. Every other word is left to the game.
#pragma once

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
