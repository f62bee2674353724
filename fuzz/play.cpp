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

Play::~Play() {
  gui.Release();
  stage.listener.onRecord = {};
}

void Play::TakeSteps() {
  while (!bytes.AtEnd()) TakeStep();
}

void Play::TakeStep() {
  const char letter = static_cast<char>(bytes.Next());
  const auto found = std::ranges::find(Steps(), letter, &Step::letter);
  if (found != Steps().end()) found->take(*this);
}

void Play::TakeStepsInside() {
  if (waiting_ == 0 || depth_ == kDepth) return;
  --waiting_;
  ++depth_;
  TakeStep();
  --depth_;
}

}  // namespace qen::fuzz
