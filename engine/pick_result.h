// What a widget or a page reports of the pick ray.
#pragma once

namespace qen {

class ICGUIObject;

struct PickResult {
  ICGUIObject* clicked = nullptr;
  ICGUIObject* hovered = nullptr;
};

}  // namespace qen
