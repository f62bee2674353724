// What widgets are made of in their scenes.
#pragma once

#include <string>
#include <vector>

#include "analysis/gui_model.h"

namespace qen::analysis {

enum class Side : std::uint8_t { Both, Checked, Unchecked };  // of a check button

// Where words are written: in the plane y = 0 of its box's node, or of its own where it has no box.
struct Label {
  std::size_t widget = 0;  // of the page
  std::size_t node = 0;
  std::size_t box = formats::kNone;
  Side side = Side::Both;
  bool isRows = false;   // of a list, whose box is drawn, too
  bool scrolls = false;  // what does not fit can be reached

  [[nodiscard]] std::size_t Plane() const { return box != formats::kNone ? box : node; }
};
std::vector<Label> LabelsOf(const Page& page);

// What shows one of three states.
struct StatePart {
  std::size_t widget = 0;
  std::size_t normal = formats::kNone;  // nodes
  std::size_t onMouse = formats::kNone;
  std::size_t disabled = formats::kNone;
  Side side = Side::Both;
};
std::vector<StatePart> StatePartsOf(const Page& page);

// Where a widget is told of: its block's name, or the page's scene without one.
std::size_t TokenOf(const Page& page, const Widget& widget);

// `"text" of ~bplay`, or the widget's name for its own node.
std::string NodeInWords(const Page& page, const Widget& widget, std::size_t node);

// A measure with at most two decimals.
std::string InUnits(double value);

}  // namespace qen::analysis
