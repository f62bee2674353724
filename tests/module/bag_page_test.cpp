// The bag: how entries are laid out on its slots, and what a slot shows.
#include <limits>
#include <random>
#include <utility>

#include "engine/scene_manager.h"
#include "tests/module/bag_fixture.h"

namespace qen::test {
namespace {

void Pick(ICGUIPageObject& bag) { EXPECT_EQ(bag.Pick(nullptr, 0, 0, 0, 0, 0), nullptr); }

ICGUIDummy& Quad(const ICGUIPageObject& bag, std::size_t slot) {
  return *dynamic_cast<ICGUIDummy*>(bag.items.at(slot));
}

// What a bag is told, written out.
struct BagModel {
  struct Slot {
    ICGUIDummy* quad;
    std::size_t place;  // from the left
  };

  void SetItems(const std::vector<IBagEntry*>& given) {
    entries = given;
    focus = entries.empty() ? 0 : focus % Count();
    slotCount = std::max(static_cast<std::int32_t>(slots.size()), Count());
  }
  void Step(std::int32_t step) {
    if (!entries.empty()) focus = (focus + step + Count()) % Count();
  }
  // The entry that each place shows, from the left.
  std::vector<IBagEntry*> LayOut() {
    std::vector<IBagEntry*> shown(slots.size());
    if (entries.empty()) return shown;
    for (auto slot = slots.begin(); slot != slots.end(); ++slot) {
      for (auto later = slot + 1; later != slots.end(); ++later) {
        if (slot->quad->GetId() > later->quad->GetId()) std::swap(*slot, *later);
      }
    }
    const auto first = std::ranges::find_if(slots, [](const Slot& slot) { return slot.quad->GetActive() != 0; });
    std::int32_t entry = focus - static_cast<std::int32_t>(first - slots.begin()) + slotCount;
    for (const Slot& slot : slots) {
      entry %= slotCount;
      if (first != slots.end() && entry < Count()) shown[slot.place] = entries[static_cast<std::size_t>(entry)];
      ++entry;
    }
    return shown;
  }
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(entries.size()); }

  std::vector<Slot> slots;
  std::vector<IBagEntry*> entries;
  std::int32_t focus = 0, slotCount = 0;
};

class BagPage : public BagTest {
 protected:
  // The calls of the engine since the last time that begin with this, with their arguments but for the usual group.
  std::string TakeCalls(std::string_view beginning = "") {
    std::string calls;
    for (const base::Call& call : std::exchange(engine.calls, {})) {
      if (!call.name.starts_with(beginning)) continue;
      calls += call.name.substr(call.name.find(':') + 2);
      for (const base::CallArgument& argument : call.arguments) {
        const auto* text = std::get_if<std::string>(&argument);
        const auto* number = std::get_if<std::int64_t>(&argument);
        if (text != nullptr && !text->empty() && *text != "_DefaultGroup_") calls += " " + *text;
        if (number != nullptr) calls += " " + std::to_string(*number);
      }
      calls += "; ";
    }
    return calls;
  }

  Entry a{1}, b{2}, c{3}, d{4};
};

TEST_F(BagPage, LaysEntriesOutAsTheModelOverRandomSteps) {
  Texture* sword = LoadTexture(u"sword.png");
  Entry armed(0x102030, sword);
  std::vector<IBagEntry*> pool{&a, &b, &c, &d, &armed, nullptr};
  std::mt19937 random(20);
  const auto below = [&random](std::size_t count) { return random() % count; };
  for (const std::size_t slots : {1U, 2U, 3U, 6U}) {
    ICGUIPageObject& bag = *OpenBagOf(slots, u"item ~qslot1 { texture missing.png }");
    BagModel model;
    const std::vector<Seen> own = DrawSlots();
    for (std::size_t i = 0; i < slots; ++i) model.slots.push_back({&Quad(bag, i), i});
    for (int step = 0; step < 400; ++step) {
      ICGUIDummy& quad = *model.slots[below(slots)].quad;
      const std::size_t what = below(5);
      if (what == 0) {
        std::vector<IBagEntry*> entries(below(9));
        for (IBagEntry*& entry : entries) entry = pool[below(pool.size())];
        bag.SetBagItems(entries);
        model.SetItems(entries);
      } else if (what == 1) {
        gui->FocusNext();
        model.Step(-1);
      } else if (what == 2) {
        EXPECT_TRUE(bag.FocusPrev());
        model.Step(1);
      } else if (what == 3) {
        quad.GetActive() = below(2) == 0 ? -1 : 0;
      } else {
        quad.GetId() = static_cast<std::int32_t>(below(4)) - 1;
      }
      Pick(bag);
      std::vector<Seen> wanted = own;
      const std::vector<IBagEntry*> shown = model.LayOut();
      for (std::size_t i = 0; i < slots; ++i) {
        const std::uint32_t color = shown[i] != nullptr ? shown[i]->GetColor() : 0xFFFFFF;
        wanted[i].first = 0xFF000000 | color;
        if (shown[i] == &armed) wanted[i].second = sword->GetHandle();
      }
      ASSERT_EQ(DrawSlots(), wanted) << "step " << step << " with " << slots;
      ASSERT_TRUE(std::ranges::equal(bag.items, model.slots, {}, {}, &BagModel::Slot::quad)) << "step " << step;
      const auto focus = static_cast<std::size_t>(model.focus);
      ASSERT_EQ(bag.GetSelectedBagItem(), model.entries.empty() ? nullptr : model.entries[focus]);
      ASSERT_EQ((std::pair{bag.focusIndex, bag.slotCount}), (std::pair{model.focus, model.slotCount}));
    }
    gui->Release();
  }
  TextureManager::GetSingleton()->Destroy(sword);
}

TEST_F(BagPage, BuildsAQuadOfEachSlotNodeInsteadOfItsMesh) {
  base::SceneData scene;
  base::AddBox(scene, u"backdrop", -1, {0, 0, -50}, {100, 80, 1});
  base::AddBox(scene, u"~qSlot01", -1, {10, 0, 0}, {5, 5, 1});
  for (const Char* name : {u"~bok", u"~Qloud", u"~q", u"~", u"~tTitle"}) base::AddNode(scene, name);
  engine.AddScene(u"scenes\\bag.glb", std::move(scene));
  AddText(u"bag.txt", u"name scenes\\bag.glb item ~qSLOT01 { tooltip 4 visible 0 disabled 1 min 3 }");
  ICGUIPageObject& bag = *OpenBag(u"bag.txt");
  ASSERT_EQ(bag.items.size(), 2U);
  EXPECT_EQ(bag.FindItem(u"~qslot01"), bag.items[0]);
  EXPECT_EQ(bag.FindItem(u"~q"), bag.items[1]);
  const ItemInfo& info = *bag.items[0]->info;
  EXPECT_EQ((std::array{info.tooltip, info.min}), (std::array{4, 3}));
  EXPECT_EQ((std::array{info.visible, info.disabled}), (std::array{1U, 0U})) << "slots are always visible";
  EXPECT_EQ(bag.NextObjectId(), 0) << "slots take none";

  ShowOnly(0);
  EXPECT_EQ(DrawSlots().size(), 3U) << "the backdrop and the quads";
  bag.items[0]->SetVisible(0);
  bag.items[1]->ShowNodes(0);
  EXPECT_EQ(DrawSlots().size(), 2U) << "slots cannot be hidden";

  AddBag(engine, u"second", 2, u"item ~qslot0 { id 77 }");
  ICGUIPageObject& second = *OpenBag(u"second.txt");
  EXPECT_EQ((std::array{bag.items[1]->GetId(), second.items[0]->GetId(), second.items[1]->GetId()}),
            (std::array{1, 77, 3}));
  gui->Release();
  EXPECT_EQ(OpenBag(u"second.txt")->items[1]->GetId(), 5) << "unloading gives no numbers back";
}

TEST_F(BagPage, LoadsAndUnloadsInOrderAndKeepsItsEntries) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~qslot0", {}, {1, 0, 0}, 1.0F));
  AddBag(engine, u"bag", 1, u"anim in.glb anim_in missing anim_in in.glb");
  engine.calls.clear();
  ICGUIPageObject& bag = *OpenBag(u"bag.txt");
  EXPECT_EQ((std::array{bag.animIn, bag.animOut}), (std::array{1, -1}));
  bag.SetBagItems({&a});
  bag.Unload();
  EXPECT_EQ(TakeCalls(),
            "SetProjection; SetLookAt 0 0 -144.1 0 0 0 0 1 0; ReadFile bag.txt; RemoveSimpleScene bag.glb_gui; "
            "DestroyScene bag.glb_scene; CreateScene bag.glb_scene; SimpleScene CGUIBagPage 196; Load bag.glb; "
            "AddSimpleScene bag.glb_gui bag.glb; LoadAnimData in.glb 4294967295; "
            "LoadAnimData missing 4294967295; LoadAnimData in.glb 4294967295; "
            "CreateInstance bag.glb_scene bag.glb_gui 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 none; "
            "GetLOD bag.glb_gui 0; DisableScene bag.glb_scene; Disable bag.glb_gui; RemoveTexture 1; GetByName gui; "
            "Load textures\\guitex\\default_bag 0 129; AddTexture 1 textures\\guitex\\default_bag; "
            "RemoveTexture 1; Destroy textures\\guitex\\default_bag; Destroy gui; DestroyInstance 1; "
            "RemoveSimpleScene bag.glb_gui; DestroyScene bag.glb_scene; ~SimpleScene bag.glb; ");
  bag.Unload();
  Pick(bag);
  EXPECT_EQ(bag.scene, nullptr);
  EXPECT_TRUE(bag.items.empty() && bag.anims.empty() && engine.render.textures.empty() && engine.log.empty());
  EXPECT_EQ(bag.GetSelectedBagItem(), &a);
  SimpleScene* scene = bag.LoadPage(u"bag.txt", 2);
  EXPECT_EQ(bag.items.size(), 1U);
  EXPECT_EQ(bag.LoadPage(u"no such file", 2), scene) << "what cannot be read changes nothing";
  for (const StringView text : {u"", u"n", u"item ~qslot0 { active 1 }", u"name missing.glb", u"anim x", u"name"}) {
    AddText(u"bag.txt", text);
    bag.LoadPage(u"bag.txt", 2);
    bag.SetBagItems({&a, nullptr});
    Pick(bag);
    bag.Render(&engine.viewport);
    EXPECT_TRUE(bag.items.empty()) << Narrow(text);
  }
}

TEST_F(BagPage, SurvivesEntriesThatChangeTheBag) {
  ICGUIPageObject* bag = OpenBagOf(3, ActiveSlots(3));
  bag->SetBagItems({&a, &b, &c});
  a.onAsked = [bag] { bag->SetBagItems({}); };
  Frame();
  bag->SetBagItems({&b, &c});
  b.onAsked = [this] { gui->Release(); };
  Frame();
  EXPECT_EQ(gui->GetPageCount(), 0U);
  bag = OpenBagOf(2, ActiveSlots(2));
  bag->SetBagItems({&c, &d});
  c.onAsked = [bag] { bag->Unload(); };
  Frame();
  EXPECT_TRUE(bag->items.empty());
}

TEST_F(BagPage, AQuadDrawsItsPictureInTheNodesPlane) {
  ICGUIDummy& quad = Quad(*OpenBagOf(1, u"item ~qslot0 { alpha 128 scale 3 }"), 0);
  EXPECT_NE(DrawSlots().at(0).second, 0U);
  Matrix4x4 moved = Matrix4x4::Identity;
  moved.SetTranslation({1, 2, 5});
  quad.SetMatrix(moved);
  EXPECT_EQ((std::array{quad.node->transform->m[3][0], gui->GetNodeMatrix(0, u"~qslot0")->m[3][1],
                        quad.node->transform->m[3][2], quad.node->inverseTransform->m[3][0]}),
            (std::array{1.0F, 2.0F, 5.0F, -1.0F}));
  engine.calls.clear();
  DrawPages();
  EXPECT_EQ(TakeCalls("Drawing::"),
            "SetWorldMatrix 3 0 0 0 0 3 0 0 0 0 3 0 1 2 5 1; BeginQuads3D gui; DrawQuad3D -4 0 4 4 0 4 -4 0 -4 4 0 -4 "
            "2164260863; EndQuads; ");

  quad.GetBagRecord().texture = u"missing.png";
  quad.LoadTexture();
  EXPECT_EQ(DrawSlots(), (std::vector{Seen{0x80FFFFFF, 0}}));
  EXPECT_TRUE(engine.render.textures.empty());
}

TEST_F(BagPage, AnActiveQuadPulsesBetweenOneAndItsScaleOnceASecond) {
  ICGUIPageObject& bag = *OpenBagOf(1, u"");
  ICGUIDummy& quad = Quad(bag, 0);
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const struct {
    double seconds;  // of the frame before
    std::int32_t active;
    float scale, factor;
  } frames[] = {{0, 1, 2, 1},         {0.25, 1, 2, 1.5F},   {0.25, 1, 2, 2},   {0.25, 1, 2, 1.5F}, {7.375, 1, 2, 1.25F},
                {0, 1, 0.5F, 0.875F}, {0, 0, 0.5F, 0.5F},   {0, -1, 2, 1.25F}, {1e30, 1, 2, 1},    {0.25, 1, 2, 1.5F},
                {-0.5, 1, 2, 1.5F},   {kInfinity, 1, 2, 1}, {0.25, 1, 2, 1.5F}};
  for (const auto& frame : frames) {
    gui->GetFrameTime() = frame.seconds;
    quad.GetActive() = frame.active;
    quad.GetScale() = frame.scale;
    Pick(bag);
    DrawPages();
    EXPECT_FLOAT_EQ(engine.render.frame.items.at(0).world.m[0][0], frame.factor) << &frame - frames;
  }
}

}  // namespace
}  // namespace qen::test
