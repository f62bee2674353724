#include "widgets/node_hook.h"

#include "engine/item_info.h"
#include "engine/scene_node.h"

namespace qen {

void NodeHook::Attach(TMNode& node, const ItemInfo& info, ICGUIObject* owner) {
  Detach();
  draw_ = {};
  draw_.showBox = &info.showBox;
  draw_.owner = owner;
  node.userData = &draw_;
  node_ = &node;
}

void NodeHook::Detach() {
  // Two widgets on nodes of one name share the node; it is the last one's then.
  if (node_ != nullptr && node_->userData == &draw_) node_->userData = nullptr;
  node_ = nullptr;
}

}  // namespace qen
