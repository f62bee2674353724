// Writes pages, the bag page and the style in their definition formats.
#pragma once

#include "engine/types.h"

namespace qen {

class ICGUIPageObject;
struct StyleSettings;

// File names of a page's interface sounds; empty for none.
struct PageSoundFiles {
  String mouse;
  String click;
  String animIn;
  String animOut;
};

String WritePage(ICGUIPageObject& page, const PageSoundFiles& sounds);
String WriteBag(ICGUIPageObject& page);
String WriteStyle(const StyleSettings& style);

}  // namespace qen
