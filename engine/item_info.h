// What pages, commands and definition files know of a widget.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/gui_message.h"
#include "engine/types.h"

namespace qen {

namespace widget_type {
inline constexpr std::uint32_t kButton = u'b';
inline constexpr std::uint32_t kCheckButton = u'c';
inline constexpr std::uint32_t kList = u'l';
inline constexpr std::uint32_t kPicture = u'p';
inline constexpr std::uint32_t kSlideBar = u's';
inline constexpr std::uint32_t kText = u't';
inline constexpr std::uint32_t kItem = u'i';
inline constexpr std::uint32_t kAnim = u'a';
inline constexpr std::uint32_t kQuad = u'q';
}  // namespace widget_type

namespace mouse_state {
inline constexpr std::uint32_t kNone = 0;
inline constexpr std::uint32_t kHeld = 1;
inline constexpr std::uint32_t kReleased = 2;  // the click; lasts one frame
}  // namespace mouse_state

struct ItemInfo {
  String name;             // the scene node's name in lower case; empty for list items and animations
  std::uint32_t type = 0;  // widget_type
  std::uint32_t visible = 0;
  std::uint32_t disabled = 0;
  std::uint32_t checked = 0;
  std::int32_t position = 0;
  std::int32_t max = 0;
  std::int32_t min = 0;
  std::uint32_t showBox = 0;                          // non-zero: the boxes of the widget's nodes are drawn
  std::uint32_t mouseState = 0;                       // mouse_state, written before each update
  Char key = 0;                                       // key or character code of this update, 0 none
  std::vector<std::unique_ptr<GuiMessage>> messages;  // in definition order
  std::int32_t tooltip = -1;                          // text id shown while hovered, -1 none
};

}  // namespace qen
