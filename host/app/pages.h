// Questions about the pages of a GUI.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/gui.h"
#include "engine/gui_object.h"
#include "engine/gui_widgets.h"
#include "engine/types.h"

namespace qen::host {

// A page's name as people write it: what is behind its folders, without extension, in lower case.
String ShortName(StringView pageName);

// The page of that name, exact or as people write it; nothing when there is none.
std::optional<std::uint32_t> FindPageByName(IGui& gui, StringView name);

// The same. Throws std::runtime_error, with the names that there are, when there is none.
std::uint32_t PageNamed(IGui& gui, StringView name);

// The active pages, then all: where widgets are looked for.
std::vector<std::uint32_t> ActiveThenAll(IGui& gui);

// The first widget on the pages, in their order, that is asked for; null when there is none.
ICGUIObject* FindFirstWidget(IGui& gui, const std::vector<std::uint32_t>& pages,
                             const std::function<bool(ICGUIObject& widget)>& isWanted);

// The widget of that name, letter case aside, on the active pages first and then on all; "page/name" picks one of that
// page. Throws std::runtime_error when there is none, saying so.
ICGUIObject& FindWidget(IGui& gui, StringView name);

// The animation that keeps any of the pages busy; null when none is playing.
ICGUIAnim* FindPlayingAnim(IGui& gui);

// Takes steps, which tell whether commands were carried out in them, until one has none and no page is animated. False
// when that is not so after `longest` of them.
bool Settle(IGui& gui, std::int32_t longest, const std::function<bool()>& step);

// The text on an active page that is being edited; null when none is.
ICGUIText* FindEditedText(IGui& gui);

// The object when it is a widget of one of the pages, null when it is gone (or null).
ICGUIObject* FindLiving(IGui& gui, const ICGUIObject* object);

}  // namespace qen::host
