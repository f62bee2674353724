// Bag pages with slots side by side, and what is seen of them.
#pragma once

#include <algorithm>

#include "engine/bag_entry.h"
#include "engine/texture.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {

inline constexpr std::uint32_t kPlainSlot = 0xFFFFFFFF;  // opaque white

// What the game puts into a slot.
class Entry final : public IBagEntry {
 public:
  explicit Entry(std::uint32_t entryColor, Texture* entryTexture = nullptr)
      : color_(entryColor), texture_(entryTexture) {}

  std::uint32_t GetColor() override {
    if (onAsked) onAsked();
    return color_;
  }
  Texture* GetTexture() override { return texture_; }

  std::function<void()> onAsked;

 private:
  std::uint32_t color_;
  Texture* texture_;
};

inline String SlotName(std::size_t number) {
  const std::string digits = std::to_string(number);
  return u"~qslot" + String(digits.begin(), digits.end());
}

// A bag file `name`.txt and its scene; the slots are 10 units apart.
inline void AddBag(base::RecordingEngine& engine, const String& name, std::size_t slots, StringView definition) {
  base::SceneData scene;
  for (std::size_t i = 0; i < slots; ++i) {
    base::AddNode(scene, SlotName(i), -1, {static_cast<float>(i) * 10.0F, 0.0F, 0.0F});
  }
  engine.AddScene(name + u".glb", std::move(scene));
  engine.files.AddText(name + u".txt", u"name " + name + u".glb\n" + String(definition));
}

// An item block for each slot.
inline String ActiveSlots(std::size_t slots) {
  String text;
  for (std::size_t i = 0; i < slots; ++i) text += u"item " + SlotName(i) + u" { active 1 }\n";
  return text;
}

class BagTest : public GuiTest {
 protected:
  struct Seen {
    std::uint32_t argb = 0;
    std::uint32_t texture = 0;  // handle; 0 none
  };

  BagTest() { engine.AddPictureFile(u"textures\\guitex\\default_bag.png"); }

  ICGUIPageObject* OpenBag(const String& file) {
    gui->AddBagPage(file.c_str(), &engine.camera);
    gui->SetViewport(&engine.viewport);
    return gui->GetPage(gui->GetPageCount() - 1);
  }

  ICGUIPageObject* OpenBagOf(std::size_t slots, StringView definition) {
    AddBag(engine, u"bag", slots, definition);
    ICGUIPageObject* bag = OpenBag(u"bag.txt");
    ShowOnly(gui->GetPageCount() - 1);
    return bag;
  }

  Texture* LoadTexture(const String& file) {
    engine.AddPictureFile(file);
    return TextureManager::GetSingleton()->Load(file, kDefaultGroup, 0, 129);
  }

  static ICGUIDummy& Quad(const ICGUIPageObject& bag, std::size_t slot) {
    return *dynamic_cast<ICGUIDummy*>(bag.items.at(slot));
  }

  // What the shown bag draws, from left to right.
  std::vector<Seen> DrawSlots() {
    DrawPages();
    std::vector<base::DrawItem> items = engine.render.frame.items;
    std::ranges::stable_sort(items, {}, [](const base::DrawItem& item) { return item.world.m[3][0]; });
    std::vector<Seen> seen;
    seen.reserve(items.size());
    for (const base::DrawItem& item : items) {
      seen.push_back({engine.render.frame.vertices.at(item.firstVertex).argb, item.texture});
    }
    return seen;
  }

  // The colours after an update.
  std::vector<std::uint32_t> ColorsOf(ICGUIPageObject& bag) {
    bag.Pick(nullptr, 0, 0, 0, 0, 0);
    const std::vector<Seen> seen = DrawSlots();
    std::vector<std::uint32_t> colors(seen.size());
    std::ranges::transform(seen, colors.begin(), [](const Seen& slot) { return slot.argb & 0xFFFFFFU; });
    return colors;
  }
};

}  // namespace qen::test
