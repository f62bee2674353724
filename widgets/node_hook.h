// A widget's hold on a scene node: tells the page's renderer how to draw it.
#pragma once

#include "engine/node_draw_info.h"

namespace qen {

struct ItemInfo;
struct TMNode;

class NodeHook {
 public:
  NodeHook() = default;
  ~NodeHook() { Detach(); }
  NodeHook(const NodeHook&) = delete;
  NodeHook& operator=(const NodeHook&) = delete;

  // Hangs the record on the node, not drawn yet. `owner` is the widget to be asked to draw, null for none. The node
  // must outlive the hook or its Detach.
  void Attach(TMNode& node, const ItemInfo& info, ICGUIObject* owner);
  void Detach();

  void Show(bool shown) { draw_.drawn = shown ? 1 : 0; }
  void LetWidgetDrawInstead() { draw_.widgetDrawsInstead = 1; }
  void LetWidgetDrawToo() { draw_.widgetDrawsToo = 1; }

 private:
  NodeDrawInfo draw_;
  TMNode* node_ = nullptr;
};

}  // namespace qen
