// Writes item blocks.
#pragma once

#include "engine/types.h"

namespace qen {

class ICGUIDummy;
class ICGUIObject;
class LineWriter;
struct LOGFONTW;

void WriteItem(LineWriter& out, ICGUIObject& widget);  // of a page
void WriteSlot(LineWriter& out, ICGUIDummy& quad);     // of a bag page

// A font block; `indent` comes before its lines.
void WriteFont(LineWriter& out, const LOGFONTW& font, StringView indent);

}  // namespace qen
