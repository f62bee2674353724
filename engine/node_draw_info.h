// How a page draws a scene node that belongs to a widget.
#pragma once

#include <cstdint>

namespace qen {

class ICGUIObject;

// Hung on TMNode::userData by the widget that owns the node; a node without one is always drawn.
struct NodeDrawInfo {
  std::uint32_t drawn = 0;                 // 0: the node is not drawn at all
  std::uint32_t widgetDrawsInstead = 0;    // the owner's Render is called and the mesh is not drawn
  std::uint32_t widgetDrawsToo = 0;        // the owner's Render is called before the mesh is drawn
  const std::uint32_t* showBox = nullptr;  // ItemInfo::showBox of the owner
  ICGUIObject* owner = nullptr;            // null for widgets that draw nothing themselves
};

}  // namespace qen
