// The bag: how entries are laid out on its slots.
#include <gmock/gmock.h>

#include "engine/scene_manager.h"
#include "engine/system.h"
#include "tests/module/bag_fixture.h"

namespace qen::test {
namespace {

using ::testing::ElementsAre;

constexpr std::uint32_t kPlain = 0xFFFFFF;

class BagPage : public BagTest {
 protected:
  Entry a{1}, b{2}, c{3}, d{4}, e{5};
};

TEST_F(BagPage, BuildsAQuadOfEachSlotNode) {
  base::SceneData scene;
  for (const Char* name : {u"Root", u"~qSlot01", u"~bok", u"~Qloud", u"~q", u"~", u"~tTitle"}) {
    base::AddNode(scene, name);
  }
  engine.AddScene(u"scenes\\bag.glb", std::move(scene));
  AddText(u"bag.txt", u"name scenes\\bag.glb item ~qSLOT01 { tooltip 4 visible 0 message use:potion min 3 }");
  ICGUIPageObject* bag = OpenBag(u"bag.txt");
  ASSERT_EQ(bag->items.size(), 2U);
  EXPECT_EQ(bag->kind, 2U);
  EXPECT_EQ(bag->baseName, u"bag.glb");
  EXPECT_EQ(bag->items[0]->info->name, u"~qslot01");
  EXPECT_EQ(bag->items[1]->info->name, u"~q");
  EXPECT_EQ(bag->FindItem(u"~qslot01"), bag->items[0]);
  EXPECT_EQ(bag->FindItem(u"~qSlot01"), nullptr);
  const ItemInfo& info = *bag->items[0]->info;
  EXPECT_EQ(info.type, widget_type::kQuad);
  EXPECT_EQ(info.tooltip, 4);
  EXPECT_EQ(info.min, 3);
  EXPECT_EQ(info.visible, 1U) << "slots are always visible";
  EXPECT_EQ(info.messages.size(), 1U);
  EXPECT_EQ(bag->NextObjectId(), 0) << "slots take none";
}

TEST_F(BagPage, AsksTheSceneManagerInOrder) {
  AddBag(engine, u"bag", 1, u"");
  engine.calls.clear();
  OpenBag(u"bag.txt");
  EXPECT_THAT(CallNames({"ISceneMng", "SimpleScene", "timeGetTime"}),
              ElementsAre("ISceneMng::RemoveSimpleScene", "ISceneMng::DestroyScene", "ISceneMng::CreateScene",
                          "SimpleScene::SimpleScene", "SimpleScene::Load", "ISceneMng::AddSimpleScene",
                          "ISceneMng::CreateInstance", "ISceneMng::DisableScene"))
      << "no light, no timing";
  const base::Call constructed = engine.CallsOf("SimpleScene::SimpleScene").at(0);
  EXPECT_EQ(std::get<std::string>(constructed.arguments.at(0)), "CGUIBagPage");
  EXPECT_EQ(std::get<std::int64_t>(constructed.arguments.at(1)), 196);
  EXPECT_TRUE(engine.log.empty());
}

TEST_F(BagPage, NumbersQuadsOverAllBags) {
  AddBag(engine, u"first", 3, u"");
  AddBag(engine, u"second", 2, u"item ~qslot0 { id 77 }");
  AddBag(engine, u"third", 1, u"");
  EXPECT_EQ(OpenBag(u"first.txt")->items[2]->GetId(), 2);
  EXPECT_EQ(OpenBag(u"second.txt")->items[0]->GetId(), 77);
  EXPECT_EQ(gui->GetPage(1)->items[1]->GetId(), 4);
  gui->Release();
  EXPECT_EQ(OpenBag(u"third.txt")->items[0]->GetId(), 5) << "unloading gives no numbers back";
}

TEST_F(BagPage, IgnoresSoundsAndLoadsAnimations) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~qslot0", {}, {1, 0, 0}, 1.0F));
  engine.AddSound(u"click.wav");
  ICGUIPageObject* bag = OpenBagOf(1, u"onclickwav click.wav anim in.glb anim_in missing anim_in in.glb");
  EXPECT_TRUE(engine.CallsOf("ISound::CreateSound").empty());
  EXPECT_EQ(bag->animIn, 1);
  EXPECT_EQ(bag->animOut, -1);
  bag->PlaySound(bag, sound_kind::kClick);
  EXPECT_TRUE(engine.CallsOf("ISound::Play").empty());
}

TEST_F(BagPage, KeepsWhatItHasWhenAFileCannotBeRead) {
  ICGUIPageObject* bag = OpenBagOf(2, u"");
  SimpleScene* scene = bag->scene;
  ASSERT_NE(scene, nullptr);
  EXPECT_EQ(bag->LoadPage(u"no such file", 2), scene);
  EXPECT_EQ(bag->items.size(), 2U);
  AddText(u"short", u"n");
  EXPECT_EQ(bag->LoadPage(u"short", 2), nullptr);
  EXPECT_NE(bag->LoadPage(u"bag.txt", 2), nullptr);
  EXPECT_EQ(bag->items.size(), 2U);
}

TEST_F(BagPage, WithoutASceneHasNoSlots) {
  for (const StringView text : {u"", u"n", u"item ~qslot0 { active 1 }", u"name missing.glb", u"anim x", u"name"}) {
    AddText(u"bag.txt", text);
    ICGUIPageObject* bag = OpenBag(u"bag.txt");
    bag->SetBagItems({&a, nullptr});
    EXPECT_EQ(bag->slotCount, 2);
    EXPECT_EQ(bag->Pick(nullptr, 0, 0, 0, 0, 0), nullptr);
    bag->Render(&engine.viewport);
    EXPECT_TRUE(bag->items.empty()) << Narrow(text);
    engine.calls.clear();
    bag->Unload();
    EXPECT_EQ(engine.CallsOf("ISceneMng::DestroyInstance").size(), 1U) << "also without a scene";
  }
  const base::Call removed = engine.CallsOf("ISceneMng::RemoveSimpleScene").at(0);
  EXPECT_EQ(std::get<std::string>(removed.arguments.at(0)), "_gui");
}

TEST_F(BagPage, LaysEntriesOutFromTheFirstActiveSlot) {
  struct Row {
    std::size_t slots;
    std::vector<std::size_t> active;
    std::vector<IBagEntry*> entries;
    std::int32_t steps;  // of FocusPrev
    std::vector<std::uint32_t> wanted;
  };
  const std::vector<Row> rows{
      {5, {0, 1, 2, 3, 4}, {&a, &b, &c}, 0, {1, 2, 3, kPlain, kPlain}},
      {5, {0, 1, 2, 3, 4}, {&a, &b, &c}, 1, {2, 3, kPlain, kPlain, 1}},
      {5, {0, 1, 2, 3, 4}, {&a, &b, &c}, 2, {3, kPlain, kPlain, 1, 2}},
      {5, {2}, {&a, &b, &c, &d, &e}, 0, {4, 5, 1, 2, 3}},
      {5, {2, 4}, {&a, &b, &c, &d, &e}, 4, {3, 4, 5, 1, 2}},
      {5, {4}, {&a, &b}, 1, {kPlain, kPlain, kPlain, 1, 2}},
      {2, {0}, {&a, &b, &c, &d, &e}, 0, {1, 2}},
      {2, {1}, {&a, &b, &c, &d, &e}, 3, {3, 4}},
      {2, {1}, {&a, &b, &c, &d, &e}, 0, {5, 1}},
      {3, {0}, {&a, nullptr, &c}, 0, {1, kPlain, 3}},
      {3, {1}, {nullptr}, 0, {kPlain, kPlain, kPlain}},
      {3, {}, {&a, &b}, 0, {kPlain, kPlain, kPlain}},
      {1, {0}, {&a, &b}, 1, {2}},
  };
  for (std::size_t row = 0; row < rows.size(); ++row) {
    ICGUIPageObject* bag = OpenBagOf(rows[row].slots, u"");
    for (const std::size_t slot : rows[row].active) Quad(*bag, slot).GetActive() = -1;
    bag->SetBagItems(rows[row].entries);
    for (std::int32_t i = 0; i < rows[row].steps; ++i) EXPECT_TRUE(bag->FocusPrev());
    EXPECT_EQ(ColorsOf(*bag), rows[row].wanted) << "row " << row;
    EXPECT_EQ(bag->slotCount, static_cast<std::int32_t>(std::max(rows[row].slots, rows[row].entries.size())));
    gui->Release();
  }
}

TEST_F(BagPage, ShowsDefaultsAgainWhenEntriesOrActiveSlotsGo) {
  ICGUIPageObject* bag = OpenBagOf(2, ActiveSlots(2));
  bag->SetBagItems({&a, &b});
  EXPECT_THAT(ColorsOf(*bag), ElementsAre(1, 2));
  bag->SetBagItems({&c});
  EXPECT_THAT(ColorsOf(*bag), ElementsAre(3, kPlain));
  bag->SetBagItems({});
  EXPECT_THAT(ColorsOf(*bag), ElementsAre(kPlain, kPlain));
  bag->SetBagItems({&a, &b});
  EXPECT_THAT(ColorsOf(*bag), ElementsAre(1, 2));
  for (const std::size_t slot : {0U, 1U}) Quad(*bag, slot).GetActive() = 0;
  EXPECT_THAT(ColorsOf(*bag), ElementsAre(kPlain, kPlain));
}

TEST_F(BagPage, ShowsTheTexturesOfEntriesOrItsOwn) {
  Texture* sword = LoadTexture(u"sword.png");
  Entry armed(0x102030, sword);
  ICGUIPageObject* bag = OpenBagOf(3, ActiveSlots(3) + u"item ~qslot2 { texture own.png }");
  bag->SetBagItems({&armed, &a, &b});
  Frame();
  std::vector<Seen> seen = DrawSlots();
  ASSERT_EQ(seen.size(), 3U);
  EXPECT_EQ(seen[0].texture, sword->GetHandle());
  EXPECT_EQ(seen[0].argb, 0xFF102030U);
  EXPECT_NE(seen[1].texture, 0U) << "an entry without a texture leaves the slot's own";
  EXPECT_NE(seen[1].texture, sword->GetHandle());
  EXPECT_EQ(seen[2].texture, 0U) << "a texture that is missing";
  EXPECT_TRUE(bag->FocusNext());
  Frame();
  seen = DrawSlots();
  EXPECT_EQ(seen[1].texture, sword->GetHandle());
  EXPECT_NE(seen[0].texture, sword->GetHandle());
  TextureManager::GetSingleton()->Destroy(sword);
}

TEST_F(BagPage, TurnsTheFocusRoundTheEntries) {
  ICGUIPageObject* bag = OpenBagOf(5, u"");
  EXPECT_TRUE(bag->FocusNext());
  EXPECT_TRUE(bag->FocusPrev());
  EXPECT_EQ(bag->focusIndex, 0);
  EXPECT_EQ(bag->GetSelectedBagItem(), nullptr);
  bag->SetBagItems({&a, nullptr, &c});
  EXPECT_EQ(bag->GetSelectedBagItem(), &a);
  engine.calls.clear();
  gui->FocusNext();
  EXPECT_EQ(bag->GetSelectedBagItem(), &c);
  gui->FocusNext();
  EXPECT_EQ(bag->GetSelectedBagItem(), nullptr) << "an entry that is none";
  gui->FocusPrev();
  gui->FocusPrev();
  EXPECT_EQ(bag->focusIndex, 0);
  EXPECT_TRUE(engine.CallsOf("SetCursorPos").empty());
}

TEST_F(BagPage, KeepsTheFocusAmongNewEntries) {
  ICGUIPageObject* bag = OpenBagOf(5, u"");
  bag->SetBagItems({&a, &b, &c});
  bag->FocusNext();
  ASSERT_EQ(bag->focusIndex, 2);
  bag->SetBagItems({&a, &b, &c, &d});
  EXPECT_EQ(bag->focusIndex, 2);
  bag->SetBagItems({&a, &b});
  EXPECT_EQ(bag->focusIndex, 0);
  bag->FocusPrev();
  bag->SetBagItems({});
  EXPECT_EQ(bag->focusIndex, 0);
  EXPECT_EQ(bag->slotCount, 5);
  bag->SetBagItems({&a, &b, &c, &d, &e, &a});
  EXPECT_EQ(bag->slotCount, 6);
}

TEST_F(BagPage, SortsSlotsByIdAsExchangingEveryPairDoes) {
  const std::vector<std::vector<std::int32_t>> cases{{0, 1, 2}, {2, 1, 0},        {2, 2, 1},   {3, 3, 3, 1, 1, 2},
                                                     {1, 1, 1}, {5, -1, 5, 2, 5}, {4, 4, 2, 2}};
  for (const std::vector<std::int32_t>& ids : cases) {
    ICGUIPageObject* bag = OpenBagOf(ids.size(), u"");
    std::vector<ICGUIObject*> wanted = bag->items;
    for (std::size_t i = 0; i < ids.size(); ++i) wanted[i]->GetId() = ids[i];
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      for (std::size_t k = i + 1; k < wanted.size(); ++k) {
        if (wanted[i]->GetId() > wanted[k]->GetId()) std::swap(wanted[i], wanted[k]);
      }
    }
    const std::vector<ICGUIObject*> before = bag->items;
    bag->Pick(nullptr, 0, 0, 0, 0, 0);
    EXPECT_EQ(bag->items, before) << "without entries nothing is sorted";
    bag->SetBagItems({&a});
    bag->Pick(nullptr, 0, 0, 0, 0, 0);
    EXPECT_EQ(bag->items, wanted);
    gui->Release();
  }
}

TEST_F(BagPage, DrawsSlotsInsteadOfTheirMeshes) {
  base::SceneData scene;
  base::AddBox(scene, u"backdrop", -1, {0, 0, -50}, {100, 80, 1});
  base::AddBox(scene, u"~qmesh", -1, {}, {5, 5, 1});
  base::AddNode(scene, u"~qbare", -1, {10, 0, 0});
  base::AddBox(scene, u"front", -1, {0, 0, 20}, {1, 1, 1});
  engine.AddScene(u"bag.glb", std::move(scene));
  AddText(u"bag.txt", u"name bag.glb");
  ICGUIPageObject* bag = OpenBag(u"bag.txt");
  ShowOnly(0);
  const auto count = [this](base::DrawKind kind) {
    return std::ranges::count(engine.render.frame.items, kind, &base::DrawItem::kind);
  };
  DrawPages();
  EXPECT_EQ(count(base::DrawKind::Mesh), 2);
  EXPECT_EQ(count(base::DrawKind::Triangles3D), 2);
  EXPECT_EQ(count(base::DrawKind::Lines3D), 0);
  bag->items[0]->SetShowBox(1);
  bag->items[1]->ShowNodes(0);
  DrawPages();
  EXPECT_EQ(count(base::DrawKind::Mesh), 2);
  EXPECT_EQ(count(base::DrawKind::Triangles3D), 1);
  EXPECT_EQ(count(base::DrawKind::Lines3D), 1);
  for (const base::DrawItem& item : engine.render.frame.items) {
    if (item.kind != base::DrawKind::Mesh) continue;
    const float z = item.world.m[3][2];
    EXPECT_TRUE(z == 50.0F || z == -20.0F) << "each mesh where its node is";
    EXPECT_FLOAT_EQ(item.distance, 144.1F + z);
  }
}

TEST_F(BagPage, UnloadsInOrderAndKeepsItsEntries) {
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~qslot0", {}, {1, 0, 0}, 1.0F));
  ICGUIPageObject* bag = OpenBagOf(2, u"anim in.glb");
  bag->SetBagItems({&a});
  engine.calls.clear();
  bag->Unload();
  std::vector<std::string> names;
  for (const base::Call& call : engine.calls) names.push_back(call.name.substr(call.name.find(':') + 2));
  EXPECT_THAT(names, ElementsAre("RemoveTexture", "Destroy", "Destroy", "RemoveTexture", "Destroy", "Destroy",
                                 "DestroyInstance", "RemoveSimpleScene", "DestroyScene", "~SimpleScene"));
  EXPECT_EQ(bag->scene, nullptr);
  EXPECT_TRUE(bag->items.empty() && bag->anims.empty());
  EXPECT_EQ(bag->GetSelectedBagItem(), &a);
  EXPECT_TRUE(engine.render.textures.empty());
  bag->Unload();
  bag->Render(&engine.viewport);
  EXPECT_EQ(bag->Pick(nullptr, 0, 0, 0, 0, 0), nullptr);
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

}  // namespace
}  // namespace qen::test
