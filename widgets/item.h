// An entry of a list.
#pragma once

#include "commands/live_objects.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"

namespace qen {

// Owns its record. All operations are the shared ones.
class CGUIItem : public ICGUIItem {
 public:
  explicit CGUIItem(ICGUIObject* list) {
    record_.type = widget_type::kItem;
    info = &record_;
    owner = list;
    page = list->page;
    name = displayText = u"NewItem";
  }

 private:
  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  ItemInfo record_;
};

}  // namespace qen
