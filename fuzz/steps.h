// What messages and calls a host may make, each as a letter of an input with bytes behind it.
#pragma once

#include <span>

#include "engine/render_client.h"
#include "fuzz/bytes.h"
#include "fuzz/stage.h"

namespace qen::fuzz {

// Draws with a page, and may take a step meanwhile.
class Guest final : public RenderClient {
 public:
  void Draw() override {
    if (onDraw) onDraw();
  }
  void Detach() override { attached = false; }
  String GetName() override { return u"guest"; }

  std::function<void()> onDraw;
  bool attached = false;
};

class Play {
 public:
  Play(Stage& stage, Input input);
  ~Play();  // releases the GUI, which may know the guest

  void TakeSteps();  // all of the input
  void TakeStep();   // the next one; an unknown letter is none

  // The step behind this one is taken when the GUI calls out next: while a record is delivered, or while it draws.
  void TakeStepInside() { ++waiting_; }

  Stage& stage;
  IGui& gui;
  Bytes bytes;
  Guest guest;
  bool handles = true;  // whether the game marks what it gets

 private:
  void TakeStepsInside();

  std::int32_t waiting_ = 0;
  std::int32_t depth_ = 0;
};

struct Step {
  char letter;
  void (*take)(Play& play);
};

std::span<const Step> Steps();

}  // namespace qen::fuzz
