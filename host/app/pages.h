// Questions about the pages of a GUI.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/gui.h"
#include "engine/gui_object.h"
#include "engine/types.h"

namespace qen::host {

// A page's name as people write it: what is behind its folders, without extension, in lower case.
String ShortName(StringView pageName);

// The page of that name, exact or as people write it; nothing when there is none.
std::optional<std::uint32_t> FindPageByName(IGui& gui, StringView name);

// The same. Throws std::runtime_error, with the names there are, when there is none.
std::uint32_t PageByName(IGui& gui, StringView name);

// The animation that keeps any of the pages busy; null when none is playing.
ICGUIAnim* FindPlayingAnim(IGui& gui);

// The object when it is a widget of one of the pages, null when it is gone (or null).
const ICGUIObject* FindLiving(IGui& gui, const ICGUIObject* object);

}  // namespace qen::host
