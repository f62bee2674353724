// A page with one list, and what happens to its entries.
#pragma once

#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {

using Indices = std::vector<std::uint32_t>;

class ListTest : public GuiTest {
 protected:
  static constexpr float kScale = 0.14F;       // world units a font pixel
  static constexpr float kLine = 21 * kScale;  // of the default font
  static constexpr std::uint32_t kRows = 10;   // that fit the box of AddList

  // Everything the list dispatches is carried out by nobody and forgotten.
  ListTest() {
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  }

  // `properties` are those of the list's item block.
  void Open(StringView properties = {}, const Vec3& place = {}) {
    base::SceneData scene;
    AddList(scene, u"long", place);
    OpenScene(std::move(scene), u"item ~llong { " + String(properties) + u" }");
    list = dynamic_cast<ICGUIList*>(Find(u"~llong", gui->GetPageCount() - 1));
    MoveTo({1, 1});
  }

  // Entries that are called by their numbers and say so when they are dispatched.
  void Fill(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      ICGUIItem* item = list->AddItem();
      const std::string digits = std::to_string(i);
      item->displayText = String(digits.begin(), digits.end());
      Say(*item, {u"visible/unvisible:" + item->displayText});
    }
  }

  ICGUIItem& Item(std::uint32_t index) { return *list->GetItem(index); }

  // A point of the k-th shown row, as high as `part` of it, on the face of a list in the middle of the view.
  static Vec3 RowPlace(std::uint32_t row, float x = 0.0F, float part = 0.5F) {
    return {x, 15.0F - (static_cast<float>(row) + part) * kLine, -1.0F};
  }

  void ClickRow(std::uint32_t row) {
    Aim(RowPlace(row));
    ClickHere();
  }

  // The wheel and the step keys.
  static constexpr Char kUpKey = 38;
  static constexpr Char kDownKey = 40;
  void Step(Char key) {
    Send(message::kKey, key);
    Deliver();
  }

  std::vector<std::uint32_t> Selected() {
    std::vector<std::uint32_t> indices{77};
    return list->GetSelectedIndices(indices);
  }

  // What was dispatched since the last call: "3+" for an entry that is selected now, "3-" for one that is not.
  std::string Dispatched() {
    std::string all;
    for (const Listener::Record& entry : listener.records) {
      EXPECT_EQ(entry.id, message::kCommand);
      all += Narrow(entry.record.argument) + (entry.record.value != 0 ? "+ " : "- ");
    }
    listener.records.clear();
    return all;
  }

  ICGUIList* list = nullptr;
};

}  // namespace qen::test
