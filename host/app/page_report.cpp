#include "host/app/page_report.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/scene.h"
#include "engine/string_converter.h"
#include "host/app/definition_tokens.h"

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

// Names of item blocks that the page has no widget for.
std::vector<String> ItemsWithoutWidget(const ICGUIPageObject& page, base::IFileBackend& files) {
  std::set<String> known;
  for (const ICGUIObject* widget : page.items) known.insert(widget->info->name);
  std::vector<String> names;
  const auto tokens = ReadTokens(files, page.fileName).value_or(std::vector<String>());
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    // A value may be the word too; widgets' names begin with their mark.
    const bool block = tokens[i] == u"item" && tokens[i + 1].starts_with(u'~');
    if (block && !known.contains(ttolowercase(tokens[i + 1]))) names.push_back(tokens[i + 1]);
  }
  return names;
}

// The page that a command text names although there is none of that name; empty when all is well.
String UnknownPage(const std::set<String>& pages, const String& command) {
  constexpr std::array<StringView, 5> kWords{u"setpage", u"addrenderpage", u"remrenderpage", u"addactivepage",
                                             u"remactivepage"};
  std::vector<String> parts = SplitString(command, u":\n", 0);
  parts.resize(2);
  if (std::ranges::find(kWords, parts[0]) == kWords.end() || pages.contains(parts[1])) return {};
  return parts[1];
}

class Report {
 public:
  Report(IGui& gui, base::IFileBackend& files, const std::function<void(const std::string& line)>& print)
      : files_(files), print_(print) {
    for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) pageNames_.insert(gui.GetPageName(page));
  }

  // A file or a scene that cannot be read has been reported already.
  void OnNoScene(const ICGUIPageObject& page) {
    const auto tokens = ReadTokens(files_, page.fileName);
    if (tokens && !BeginsWithName(*tokens)) print_(base::ToUtf8(page.fileName) + kNoName);
  }

  void OnPage(const ICGUIPageObject& page) {
    const std::string place = base::ToUtf8(page.fileName) + ": ";
    if (page.items.empty()) print_(place + "no widgets in " + base::ToUtf8(page.name));
    for (ICGUIObject* widget : page.items) OnWidget(place + base::ToUtf8(widget->info->name), *widget);
    for (const String& name : ItemsWithoutWidget(page, files_)) {
      print_(place + "no widget " + base::ToUtf8(name) + " in " + base::ToUtf8(page.name));
    }
  }

 private:
  void OnWidget(const std::string& place, ICGUIObject& widget) {
    const std::string node = MissingNode(widget);
    if (!node.empty()) print_(place + " has no node \"" + node + "\"");
    for (const auto& record : widget.info->messages) {
      const String page = UnknownPage(pageNames_, record->text);
      if (!page.empty()) print_(place + " names a page that does not exist: " + base::ToUtf8(page));
    }
  }

  std::set<String> pageNames_;
  base::IFileBackend& files_;
  const std::function<void(const std::string& line)>& print_;
};

}  // namespace

void ReportIncompletePages(IGui& gui, base::IFileBackend& files,
                           const std::function<void(const std::string& line)>& print) {
  Report report(gui, files, print);
  for (std::uint32_t i = 0; i < gui.GetPageCount(); ++i) {
    const ICGUIPageObject& page = *gui.GetPage(i);
    if (page.scene == nullptr) {
      report.OnNoScene(page);
    } else if (!page.scene->GetNodes().empty()) {
      report.OnPage(page);
    }
  }
}

}  // namespace qen::host
