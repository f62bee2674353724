#include "host/app/tour.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/messages.h"
#include "formats/widget_kinds.h"
#include "host/app/pages.h"
#include "host/app/widget_place.h"

namespace qen::host {
namespace {

constexpr int kHoverSteps = 75;  // long enough for a tooltip
constexpr int kHeldSteps = 6;
constexpr int kEntranceSteps = 120;
constexpr base::Point kNowhere{-1000, -1000};

// Widgets that react when the cursor comes to them.
bool IsHoverable(const ICGUIObject& widget) {
  const ItemInfo* info = widget.info;
  return info != nullptr && (info->type == widget_type::kButton || info->type == widget_type::kCheckButton) &&
         info->visible != 0 && info->disabled == 0;
}

// The page that a click on the widget shows, as far as its commands say; nothing when they name none.
std::optional<std::uint32_t> FindTarget(IGui& gui, const ICGUIObject& widget) {
  constexpr std::array<StringView, 3> kShowingWords{u"setpage:", u"addrenderpage:", u"addactivepage:"};
  for (const auto& record : widget.info->messages) {
    for (const StringView word : kShowingWords) {
      if (!record->text.starts_with(word)) continue;
      const std::int32_t page = gui.FindPage(record->text.substr(word.size()));
      if (page >= 0) return static_cast<std::uint32_t>(page);
    }
  }
  return std::nullopt;
}

// What file systems may not like in a name becomes "_".
std::string ToFileName(StringView name) {
  String result = ShortName(name);
  std::ranges::replace_if(
      result, [](Char c) { return c <= u' ' || StringView(u"/\\:*?\"<>|").find(c) != StringView::npos; }, u'_');
  return base::ToUtf8(result);
}

// A widget's name without the mark and letter of its kind in front.
StringView PlainName(const ICGUIObject& widget) {
  const StringView name = widget.info->name;
  return name.starts_with(formats::kWidgetMark) && name.size() > 2 ? name.substr(2) : name;
}

class Tour {
 public:
  Tour(Stage& stage, std::filesystem::path folder) : stage_(stage), gui_(stage.Gui()), folder_(std::move(folder)) {}

  void Run() {
    stage_.MoveCursor(kNowhere);
    stage_.Update(Stage::kStep);  // carries out what the first page waits for
    const std::vector<std::uint32_t> active = gui_.GetActivePages();
    const std::uint32_t first = active.empty() ? 0 : active.front();
    ShowEntrance(first);
    ShowSettled(first);
    ShowButtons(first);
    FollowButtons(first);
    for (std::uint32_t page = 0; page < gui_.GetPageCount(); ++page) {
      if (seen_.contains(page) || gui_.GetPage(page)->scene == nullptr) continue;
      gui_.SetPage(page);
      ShowSettled(page);
    }
    ShowOtherLanguages();
  }

 private:
  void ShowEntrance(std::uint32_t page) {
    const std::string name = ToFileName(gui_.GetPageName(page));
    for (int step = 0; step < kEntranceSteps; ++step) {
      ICGUIAnim* playing = gui_.GetPage(page)->GetPlayingAnim();
      if (playing == nullptr) return;
      if (playing->GetProgress() >= 0.5F) return TakePicture(name + "_entering");
      stage_.Update(Stage::kStep);
    }
  }

  void ShowSettled(std::uint32_t page) {
    seen_.insert(page);
    stage_.Settle();
    TakePicture(ToFileName(gui_.GetPageName(page)));
  }

  // Every page once more in each language that it has not been seen in.
  void ShowOtherLanguages() {
    const String first = gui_.GetLanguage();
    std::set<String> shown{first};
    for (const String& language : gui_.GetLanguages()) {
      if (!shown.insert(language).second) continue;
      gui_.SetLanguage(language);
      for (const std::uint32_t page : seen_) {
        gui_.SetPage(page);
        stage_.Settle();
        TakePicture(ToFileName(gui_.GetPageName(page)) + '_' + ToFileName(language));
      }
    }
    gui_.SetLanguage(first);
  }

  void ShowButtons(std::uint32_t page) {
    const std::string pageName = ToFileName(gui_.GetPageName(page));
    std::string held;
    for (ICGUIObject* widget : gui_.GetPageItems(page)) {
      const auto place = FindPlace(*widget, stage_.GetCamera(), stage_.Window().ClientSize());
      if (!IsHoverable(*widget) || !place) continue;
      const std::string name = ToFileName(PlainName(*widget));
      stage_.MoveCursor(*place);
      Steps(kHoverSteps);
      TakePicture(pageName + "_over_" + name);
      if (held.empty()) ShowHeld(pageName + "_holding_" + (held = name));
    }
    stage_.MoveCursor(kNowhere);
    Steps(1);
  }

  // Clicks what leads to other pages: dialogs are seen over the page that they belong to.
  void FollowButtons(std::uint32_t page) {
    for (ICGUIObject* widget : gui_.GetPageItems(page)) {
      const auto target = IsHoverable(*widget) ? FindTarget(gui_, *widget) : std::nullopt;
      if (!target || seen_.contains(*target)) continue;
      Click(*widget);
      ShowSettled(*target);
      gui_.SetPage(page);
      stage_.Settle();
    }
  }

  void Click(ICGUIObject& widget) {
    const auto place = FindPlace(widget, stage_.GetCamera(), stage_.Window().ClientSize());
    if (!place) return;
    stage_.MoveCursor(*place);
    stage_.Send(message::kButtonDown, message::kMainButton);
    Steps(1);
    stage_.Send(message::kButtonUp, message::kMainButton);
    Steps(1);
    stage_.MoveCursor(kNowhere);
  }

  // Lets go beside the widget, so that it is not clicked.
  void ShowHeld(const std::string& name) {
    stage_.Send(message::kButtonDown, message::kMainButton);
    Steps(kHeldSteps);
    TakePicture(name);
    stage_.MoveCursor(kNowhere);
    Steps(1);
    stage_.Send(message::kButtonUp, message::kMainButton);
    Steps(1);
  }

  void Steps(int count) {
    for (int step = 0; step < count; ++step) stage_.Update(Stage::kStep);
  }

  void TakePicture(const std::string& name) {
    char number[16];
    std::snprintf(number, sizeof number, "%02d_", ++pictures_);
    const std::filesystem::path file = folder_ / (number + name + ".png");
    stage_.Draw();
    stage_.WritePicture(file);
    std::printf("%s\n", file.generic_string().c_str());
  }

  Stage& stage_;
  IGui& gui_;
  std::filesystem::path folder_;
  std::set<std::uint32_t> seen_;  // pages
  int pictures_ = 0;
};

}  // namespace

void PlayTour(Stage& stage, const std::filesystem::path& folder) { Tour(stage, folder).Run(); }

}  // namespace qen::host
