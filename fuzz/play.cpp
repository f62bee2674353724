#include <algorithm>

#include "fuzz/steps.h"

namespace qen::fuzz {
namespace {

constexpr std::int32_t kDepth = 8;  // steps inside steps

}  // namespace

Play::Play(Stage& newStage, Input input) : stage(newStage), gui(*newStage.gui), bytes(input) {
  stage.listener.onRecord = [this](std::uint32_t, GuiMessage& record) {
    if (handles && record.command == u"play") record.handled = 1;
    TakeStepsInside();
  };
  guest.onDraw = [this] { TakeStepsInside(); };
}

void Play::TakeSteps() {
  while (!bytes.AtEnd()) TakeStep();
}

void Play::TakeStep() {
  const char letter = static_cast<char>(bytes.Next());
  for (const std::span<const Step> steps : {InputSteps(), BookSteps(), WidgetSteps()}) {
    const auto found = std::ranges::find(steps, letter, &Step::letter);
    if (found != steps.end()) return found->take(*this);
  }
}

void Play::TakeStepInside() { ++waiting_; }

void Play::TakeStepsInside() {
  if (waiting_ == 0 || depth_ == kDepth) return;
  --waiting_;
  ++depth_;
  TakeStep();
  --depth_;
}

ICGUIObject* Play::Widget() { return WidgetOf<ICGUIObject>(); }

ICGUIPageObject* Play::Page() { return gui.GetPage(PageIndex()); }

std::uint32_t Play::PageIndex() { return static_cast<std::uint32_t>(bytes.Next() - '0'); }

}  // namespace qen::fuzz
