// Bag pages with slots side by side, and what is seen of them.
#pragma once

#include <algorithm>
#include <utility>

#include "engine/bag_entry.h"
#include "engine/texture.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {

// What the game puts into a slot.
struct Entry final : IBagEntry {
  explicit Entry(std::uint32_t entryColor, Texture* entryTexture = nullptr)
      : color(entryColor), texture(entryTexture) {}

  std::uint32_t GetColor() override {
    if (onAsked) onAsked();
    return color;
  }
  Texture* GetTexture() override { return texture; }

  std::uint32_t color;
  Texture* texture;
  std::function<void()> onAsked;
};

inline String SlotName(std::size_t number) { return u"~qslot" + base::ToUtf16(std::to_string(number)); }

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
  using Seen = std::pair<std::uint32_t, std::uint32_t>;  // its colour, and its texture's handle or 0

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

  // What the shown bag draws, from left to right.
  std::vector<Seen> DrawSlots() {
    DrawPages();
    std::vector<base::DrawItem> items = engine.render.frame.items;
    std::ranges::stable_sort(items, {}, [](const base::DrawItem& item) { return item.world.m[3][0]; });
    std::vector<Seen> seen;
    seen.reserve(items.size());
    for (const base::DrawItem& item : items) {
      seen.emplace_back(engine.render.frame.vertices.at(item.firstVertex).argb, item.texture);
    }
    return seen;
  }
};

}  // namespace qen::test
