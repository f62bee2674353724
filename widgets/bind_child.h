// Widgets that are parts of other widgets.
#pragma once

#include <cstdint>
#include <memory>

#include "engine/gui_object.h"
#include "widgets/child_nodes.h"

namespace qen {

// A new widget on the owner's child node of that name, sharing the owner's page and record. Null when there is no such
// node.
template <class Widget>
std::unique_ptr<Widget> BindChild(const IChildNodes& nodes, const ICGUIObject& owner, StringView word) {
  TMNode* child = nullptr;
  std::int32_t position = -1;
  if (!nodes.FindChildNode(owner.node, word, child, position)) return nullptr;
  auto widget = std::make_unique<Widget>(nodes);
  widget->Create(owner.page, owner.info, &child);
  return widget;
}

}  // namespace qen
