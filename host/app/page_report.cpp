#include "host/app/page_report.h"

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/scene.h"

namespace qen::host {
namespace {

// The first child node that a widget of this kind cannot do without and does not have; empty when it has all.
std::string MissingNode(ICGUIObject& widget) {
  if (auto* check = dynamic_cast<ICGUICheckButton*>(&widget)) {
    if (check->GetCheckedButton() == nullptr) return "checked";
    return check->GetUncheckedButton() == nullptr ? "unchecked" : "";
  }
  if (widget.normalNode != nullptr) return "";
  if (widget.info->type == widget_type::kButton) return "normal";
  return widget.info->type == widget_type::kList ? "list" : "";
}

}  // namespace

void ReportIncompletePages(IGui& gui, const std::function<void(const std::string& line)>& print) {
  for (std::uint32_t i = 0; i < gui.GetPageCount(); ++i) {
    const ICGUIPageObject& page = *gui.GetPage(i);
    // A scene that did not load has been reported already.
    if (page.scene == nullptr || page.scene->GetNodes().empty()) continue;
    const std::string place = base::ToUtf8(page.fileName) + ": ";
    if (page.items.empty()) print(place + "no widgets in " + base::ToUtf8(page.name));
    for (ICGUIObject* widget : page.items) {
      const std::string node = MissingNode(*widget);
      if (!node.empty()) print(place + base::ToUtf8(widget->info->name) + " has no node \"" + node + "\"");
    }
  }
}

}  // namespace qen::host
