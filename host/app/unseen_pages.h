// Notices pages that take input though nobody sees them.
#pragma once

#include <functional>
#include <string>

#include "engine/gui.h"

namespace qen::host {

// A page that is active and has widgets, but is not drawn, while nothing moves: what comes of a second "setpage" while
// the page of the first one was entering.
class UnseenPages {
 public:
  // To be called after each frame. Gives a line for each such page, once, when that has lasted for some frames.
  void Look(IGui& gui, const std::function<void(const std::string& line)>& print);

 private:
  static constexpr int kPatience = 10;  // frames

  int frames_ = 0;  // with such a page; kPatience when it has been told
};

}  // namespace qen::host
