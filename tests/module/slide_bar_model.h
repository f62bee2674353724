// What a slide bar of AddSlideBar must do, written down step by step; and how a widget is put beside such a model.
#pragma once

#include <algorithm>
#include <random>

#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {

// The same numbers in every run.
struct Dice {
  std::uint32_t Below(std::size_t end) { return static_cast<std::uint32_t>(random() % end); }

  std::mt19937 random{4711};
};

constexpr Char kUpKey = 38;
constexpr Char kDownKey = 40;

// An update's input. The place is along the bar, from its middle to the far end.
struct Pointer {
  double along = 0;
  bool beside = false;
  std::uint32_t mouse = 0;
  Char key = 0;
};

struct SlideBarModel {
  enum Part : unsigned { kBar = 1, kSlider = 2, kDown = 4, kUp = 8, kAllParts = 15 };
  static constexpr StringView kRoles[] = {u"bar", u"slider", u"down", u"up"};

  unsigned parts = kAllParts;
  bool vertical = true;
  std::int64_t min = 0;
  std::int64_t max = 100;
  std::int64_t position = 0;
  bool wrap = false;
  bool visible = true;
  bool disabled = false;
  int state = 0;
  double slider = -30;     // where its middle was drawn
  std::string dispatched;  // "c" for a command, "n" for a notification

  // "h" for a bar that is hovered, "hc" for one that is clicked as well.
  std::string Update(const Pointer& pointer) {
    state = 0;
    if (!visible) return "";
    std::string result = UpdateButton(kSlider, slider, pointer);
    UpdateButton(kBar, 0, pointer);
    if (IsOn(kBar, 0, pointer)) result = UpdateBar(pointer);
    position = std::min(std::max(position, min), max);
    if (result.empty()) result = UpdateStep(kDown, -1, pointer);
    if (result.empty()) result = UpdateStep(kUp, 1, pointer);
    const double part = min == max ? 0 : static_cast<double>(position - min) / static_cast<double>(max - min);
    slider = 60 * part - 30 - (vertical ? 0.5 : 1);  // less half of its length or, upright, of its depth
    if (result == "hc") dispatched += "n";
    state = result.empty() ? 1 : 2;
    return result;
  }

  // From the node of the slide bar to a face of it.
  [[nodiscard]] Vec3 PlaceOf(const Pointer& pointer) const {
    const auto along = static_cast<float>(pointer.along);
    const float across = pointer.beside ? 3 : 0;
    return vertical ? Vec3{across, -along, -1} : Vec3{along, across, -1};
  }

  // In the middle of what a position takes, and not near an end of the slider.
  Pointer Anywhere(Dice& dice) const {
    constexpr Char kKeys[] = {0, kUpKey, kDownKey, u'x'};
    Pointer pointer{0, dice.Below(10) == 0, dice.Below(3), kKeys[dice.Below(4)]};
    const bool wide = max - min > 150;
    if (wide && pointer.mouse == 1) pointer.mouse = 0;
    const std::int64_t cells = wide || max < min ? 60 : max - min + 1;
    const double sign = dice.Below(2) == 0 ? -1 : 1;
    do {
      const double cell = dice.Below(static_cast<std::size_t>(cells)) + 0.5;
      pointer.along = dice.Below(4) == 0   ? sign * (35 + dice.Below(3))
                      : dice.Below(4) == 0 ? sign * 31.7
                                           : 60 * cell / static_cast<double>(cells) - 30;
    } while (std::abs(std::abs(pointer.along - slider) - 2) < 0.7);
    return pointer;
  }

 private:
  [[nodiscard]] bool IsOn(Part part, double middle, const Pointer& pointer) const {
    const bool there = (parts & part) != 0 && (part != kSlider || (parts & kBar) != 0);
    return there && !disabled && !pointer.beside && std::abs(pointer.along - middle) <= (part == kBar ? 30 : 2);
  }

  // Each part is a button, which has the commands of the whole.
  std::string UpdateButton(Part part, double middle, const Pointer& pointer) {
    if (pointer.mouse == 1 || !IsOn(part, middle, pointer)) return "";
    if (pointer.mouse == 2) dispatched += "c";
    return pointer.mouse == 2 ? "hc" : "h";
  }

  std::string UpdateBar(const Pointer& pointer) {
    const std::int64_t step = std::max<std::int64_t>((max - min + 1) / 10, 1);
    if (pointer.key == kDownKey) position += step;
    if (pointer.key == kUpKey) position -= step;
    if (pointer.key == kUpKey || pointer.key == kDownKey) dispatched += "n";
    if (pointer.mouse != 1) return "h";
    const double part = pointer.along / 60 + 0.5;
    const auto span = static_cast<double>(max - min + 1);
    position = vertical ? max - static_cast<std::int64_t>((1 - part) * span)  // measured from the bottom
                        : min + static_cast<std::int64_t>(part * span);
    return "hc";
  }

  std::string UpdateStep(Part part, int direction, const Pointer& pointer) {
    const std::string result = UpdateButton(part, direction * 36, pointer);
    if (result != "hc") return result;
    const std::int64_t next = position + direction;
    if (next >= min && next <= max) {
      position = next;
    } else if (wrap) {
      position = direction < 0 ? max : min;
    }
    return result;
  }
};

class BesideModel : public GuiTest {
 protected:
  BesideModel() {
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  }

  // What SlideBarModel::Update gives.
  std::string Pick(const ICGUIObject* widget, const Vec3& place, const Pointer& pointer) {
    const auto [hovered, clicked] = PickAt(Project(place), pointer.mouse, pointer.key).value_or(Picked{});
    return std::string(hovered == widget ? "h" : "") + (clicked == widget ? "c" : "");
  }

  // What SlideBarModel::dispatched is; a command with an argument gives that and its value's sign.
  std::string Dispatched() {
    Deliver();
    std::string dispatched;
    for (const auto& [id, record] : std::exchange(listener.records, {})) {
      const std::string command =
          record.argument.empty() ? "c" : Narrow(record.argument) + (record.value != 0 ? "+ " : "- ");
      dispatched += id == message::kNotification ? "n" : command;
    }
    return dispatched;
  }

  Dice dice;
};

}  // namespace qen::test
