// The keywords that describe a text.
#pragma once

#include "engine/types.h"

namespace qen {

class CGUIParser;
class ICGUIText;

// When `keyword` is one of them, reads its value, stores it (nowhere when `text` is null) and returns true.
bool ReadTextProperty(CGUIParser& parser, StringView keyword, ICGUIText* text);

}  // namespace qen
