#include "host/app/page_report.h"

#include <set>
#include <vector>

#include "base/utf.h"
#include "base/vfs.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/scene.h"
#include "engine/string_converter.h"
#include "formats/command_words.h"
#include "formats/definition_words.h"
#include "host/app/definition_tokens.h"
#include "host/app/page_outline.h"

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

bool HasScene(const ICGUIPageObject& page) {
  return page.scene != nullptr && (page.instance != nullptr || !page.scene->GetNodes().empty());
}

// Why the page has no scene, in one line. The engine has reported files that cannot be read, but nothing else.
struct EmptyPage {
  std::string reason;
  bool isReported = false;
};

EmptyPage ExplainEmpty(const ICGUIPageObject& page, base::IFileBackend& files) {
  if (page.fileName.empty()) return {"a page has no file"};
  const std::string file = base::ToUtf8(page.fileName);
  const auto tokens = ReadTokens(files, page.fileName);
  if (!tokens) return {file + " cannot be read", true};
  if (!BeginsWithName(*tokens)) return {file + kNoName};
  return {file + ": its scene " + base::ToUtf8(page.name) + " cannot be loaded", true};
}

// The page that a command text names although there is none of that name; empty when all is well.
String UnknownPage(const std::set<String>& pages, const String& command) {
  std::vector<String> parts = SplitString(command, String(formats::kCommandSeparators), 0);
  parts.resize(2);
  const formats::CommandWord* word = formats::FindCommand(parts[0]);
  if (word == nullptr || word->argument != formats::Argument::Page || pages.contains(parts[1])) return {};
  return parts[1];
}

class Report {
 public:
  Report(IGui& gui, base::IFileBackend& files, const std::function<void(const std::string& line)>& print)
      : files_(files), print_(print) {
    for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) pageNames_.insert(gui.GetPageName(page));
  }

  void OnPage(const ICGUIPageObject& page) {
    const std::string place = base::ToUtf8(page.fileName) + ": ";
    if (page.items.empty()) print_(place + "no widgets in " + base::ToUtf8(page.name));
    for (ICGUIObject* widget : page.items) OnWidget(place + base::ToUtf8(widget->info->name), *widget);
    OnFile(page, OutlineOf(ReadTokens(files_, page.fileName).value_or(std::vector<String>())), place);
  }

 private:
  void OnFile(const ICGUIPageObject& page, const PageOutline& outline, const std::string& place) {
    std::set<String> known;
    for (const ICGUIObject* widget : page.items) known.insert(widget->info->name);
    for (const String& name : outline.items) {
      if (known.contains(ttolowercase(name))) continue;
      print_(place + "no widget " + base::ToUtf8(name) + " in " + base::ToUtf8(page.name));
    }
    if (outline.unfinished.empty()) return;
    print_(place + "it ends without the value of \"" + base::ToUtf8(outline.unfinished) + '"');
  }

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
    if (HasScene(page)) {
      report.OnPage(page);
    } else if (const EmptyPage empty = ExplainEmpty(page, files); !empty.isReported) {
      print(empty.reason);
    }
  }
}

std::string FindEmptyPage(IGui& gui, base::IFileBackend& files) {
  for (std::uint32_t i = 0; i < gui.GetPageCount(); ++i) {
    if (!HasScene(*gui.GetPage(i))) return ExplainEmpty(*gui.GetPage(i), files).reason;
  }
  return {};
}

void ReportShortStyles(const String& description, base::IFileBackend& files,
                       const std::function<void(const std::string& line)>& print) {
  constexpr std::size_t kFewest = 2;  // characters
  const auto tokens = ReadTokens(files, description).value_or(std::vector<String>());
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    const formats::Keyword* key = formats::Find(formats::kDescription, tokens[i]);
    if (key == nullptr) continue;
    const String& file = tokens[++i];
    if (key->value != formats::Value::Style || !files.Read(file, bytes) || base::DecodeText(bytes).size() >= kFewest)
      continue;
    print(base::ToUtf8(file) + ": too short for a style, so there are no tooltips");
  }
}

}  // namespace qen::host
