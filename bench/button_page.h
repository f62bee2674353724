// The screen of buttons as a page of this module.
#pragma once

#include <vector>

#include "base/backends/window_backend.h"
#include "bench/bench_host.h"

namespace qen::bench {

class ButtonPage {
 public:
  // `adjust` gives the engine other devices than those that do nothing. Files and scenes are there; nothing is loaded.
  ButtonPage(std::size_t buttons, const std::function<void(base::Backends&)>& adjust);

  void Load() { LoadPage(kWidgets); }
  void LoadSceneAlone() { LoadPage(kDecoration); }  // the same nodes, none of which is a widget
  void Unload() const { host.gui->Release(); }

  // The client pixel in the middle of a button of the loaded page.
  base::Point PlaceOf(std::size_t button);

  test::Host host;

 private:
  static constexpr StringView kWidgets = u"~b";
  static constexpr StringView kDecoration = u"x-";

  void LoadPage(StringView mark);
  void FindPlaces();

  std::vector<base::Point> places_;
};

}  // namespace qen::bench
