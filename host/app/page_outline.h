// A page or bag file as its words alone tell it, whatever its scene has.
#pragma once

#include <vector>

#include "engine/types.h"

namespace qen::host {

struct PageOutline {
  std::vector<String> items;  // the names of its item blocks, as they are written
  String unfinished;          // the keyword at the file's end whose value is missing; empty for none
};

PageOutline OutlineOf(const std::vector<String>& tokens);

}  // namespace qen::host
