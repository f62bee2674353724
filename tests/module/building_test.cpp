// From scene nodes to widgets.
#include "engine/scene.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Building : public GuiTest {};

TEST_F(Building, MakesAWidgetOfEachMarkedNode) {
  base::SceneData scene;
  AddButton(scene, u"Start", {});
  base::AddNode(scene, u"~tTitle");
  base::AddNode(scene, u"~xFoo");
  base::AddNode(scene, u"~BLoud");
  base::AddNode(scene, u"~");
  base::AddNode(scene, u"~qslot");
  base::AddNode(scene, u"Plain");
  base::AddNode(scene, u"~llist");
  ICGUIPageObject* page = OpenScene(std::move(scene), {}, u"menus\\main");
  ASSERT_EQ(page->items.size(), 3U);
  EXPECT_EQ(page->items[0]->info->name, u"~bstart");
  EXPECT_EQ(page->items[0]->info->type, widget_type::kButton);
  EXPECT_EQ(page->items[1]->info->name, u"~ttitle");
  EXPECT_EQ(page->items[1]->GetId(), 1);
  EXPECT_EQ(page->items[2]->info->tooltip, -1);
  EXPECT_EQ(page->items[2]->info->visible, 1U);
  EXPECT_EQ(page->baseName, u"main.glb");
  EXPECT_EQ(page->name, u"menus\\main.glb");
}

TEST_F(Building, AsksTheSceneManagerInOrder) {
  AddButtonPage(u"a\\b", {});
  engine.calls.clear();
  OpenPage(u"a\\b.txt");
  std::vector<std::string> names;
  for (const base::Call& call : engine.calls) {
    if (call.name.starts_with("ISceneMng") || call.name.starts_with("SimpleScene")) {
      names.push_back(call.name);
      if (!call.arguments.empty() && std::holds_alternative<std::string>(call.arguments[0])) {
        names.back() += " " + std::get<std::string>(call.arguments[0]);
      }
    }
  }
  const std::vector<std::string> wanted{"ISceneMng::RemoveSimpleScene b.glb_gui",
                                        "ISceneMng::DestroyScene b.glb_scene",
                                        "ISceneMng::CreateScene b.glb_scene",
                                        "SimpleScene::SimpleScene CGUIPage",
                                        "SimpleScene::Load",
                                        "ISceneMng::AddSimpleScene b.glb_gui",
                                        "ISceneMng::AddLight b.glb_scene",
                                        "ISceneMng::CreateInstance b.glb_scene",
                                        "ISceneMng::DisableScene b.glb_scene"};
  ASSERT_GE(names.size(), wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    EXPECT_EQ(names[i].substr(0, wanted[i].size()), wanted[i]) << "call " << i;
  }
}

TEST_F(Building, StatesFallBackToTheNormalNode) {
  base::SceneData scene;
  const std::int32_t node = base::AddNode(scene, u"~bBare");
  base::AddBox(scene, u"NORMAL_mesh", node, {}, {5, 5, 1});
  base::AddBox(scene, u"on", node, {}, {5, 5, 1});
  const std::int32_t group = base::AddNode(scene, u"group", node);
  base::AddBox(scene, u"disabled", group, {}, {5, 5, 1});
  OpenScene(std::move(scene));
  ICGUIObject* bare = Find(u"~bbare");
  ASSERT_NE(bare->normalNode, nullptr);
  EXPECT_EQ(bare->onMouseNode, bare->normalNode) << "a shorter name is no match";
  EXPECT_EQ(bare->onMouseIndex, -1);
  EXPECT_EQ(bare->disabledNode, bare->normalNode) << "grandchildren do not count";
  Hover(*bare);
  Frame();
  EXPECT_TRUE(IsDrawn(u"NORMAL_mesh"));
  EXPECT_TRUE(IsDrawn(u"on")) << "no widget's node: drawn as decoration";
  bare->info->disabled = 1;
  Frame();
  EXPECT_TRUE(IsDrawn(u"NORMAL_mesh"));
}

TEST_F(Building, WidgetsWithoutTheirNodesAreInert) {
  base::SceneData scene;
  for (const StringView name : {u"~bempty", u"~cempty", u"~lempty", u"~pempty", u"~sempty", u"~tempty"}) {
    base::AddNode(scene, name);
  }
  ICGUIPageObject* page = OpenScene(std::move(scene));
  ASSERT_EQ(page->items.size(), 6U);
  ClickHere();
  Send(message::kKey, u'x');
  DrawPages();
  gui->FocusNext();
  gui->FocusPrev();
  for (ICGUIObject* widget : page->items) {
    Matrix4x4 matrix = Matrix4x4::Identity;
    AABB box;
    widget->GetMatrix(matrix);
    widget->SetMatrix(matrix);
    widget->GetAABB(box);
    widget->ShowNodes(1);
  }
}

TEST_F(Building, FindsWidgetsByTheirPresentNames) {
  AddButtonPage(u"menu", {u"a", u"b", u"c"});
  const ICGUIPageObject* page = OpenPage(u"menu.txt");
  page->items[1]->info->name = u"~bz";
  page->items[2]->info->name = u"~ba";
  EXPECT_EQ(Find(u"~bz"), page->items[1]);
  EXPECT_EQ(Find(u"~ba"), page->items[0]);
  EXPECT_EQ(gui->FindObjects(u"~ba"), (std::vector<ICGUIObject*>{page->items[0], page->items[2]}));
  EXPECT_EQ(Find(u"~bb"), nullptr);
}

TEST_F(Building, PagesOfTheSameBaseNameStaySafe) {
  AddButtonPage(u"same", {u"ok"}, u"anim_in move.glb");
  engine.AddAnimation(u"move.glb", base::MoveNode(u"~bok", {}, {0, 10, 0}, 1.0F));
  AddText(u"second.txt", u"name same.glb anim_in move.glb");
  ICGUIPageObject* first = OpenPage(u"same.txt");
  OpenPage(u"second.txt");
  gui->GetActivePages() = {0, 1};
  gui->GetRenderPages() = {0, 1};
  for (std::uint32_t page = 0; page < 2; ++page) gui->GetPage(page)->PlayAnim(0, false);
  Frame();
  DrawPages();
  first->Unload();
  Frame();
  DrawPages();
  EXPECT_EQ(first->FindNodeMatrix(u"~bok"), nullptr);
  EXPECT_NE(gui->GetNodeMatrix(1, u"~bok"), nullptr) << "the scene is the second page's";
}

}  // namespace
}  // namespace qen::test
