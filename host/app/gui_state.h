// What a GUI shows, kept while it is loaded anew.
#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "engine/gui.h"
#include "engine/types.h"

namespace qen::host {

// The language, the pages on screen and what the user set: checks, positions, texts and selections. Pages and widgets
// are known by their names, list entries by their places.
class GuiState {
 public:
  explicit GuiState(IGui& gui);

  // Puts back what still has a place, without transitions.
  void Restore(IGui& gui) const;

 private:
  struct Widget {
    std::uint32_t checked = 0;
    std::int32_t position = 0;
    String edited;
    std::vector<std::uint32_t> selected;
  };

  static Widget Remember(ICGUIObject& widget);
  static void PutBack(const Widget& kept, ICGUIObject& widget);

  String language_;
  std::vector<String> active_;
  std::vector<String> rendered_;
  std::map<std::pair<String, String>, Widget> widgets_;  // by the names of page and widget
};

}  // namespace qen::host
