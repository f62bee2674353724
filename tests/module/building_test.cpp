// From scene nodes to widgets.
#include "engine/scene.h"
#include "tests/module/every_widget.h"

namespace qen::test {
namespace {

using Building = GuiTest;

TEST_F(Building, MakesAWidgetOfEachMarkedNode) {
  base::SceneData scene;
  AddButton(scene, u"Start", {});
  for (const StringView name : {u"~tTitle", u"~xFoo", u"~BLoud", u"~", u"~qslot", u"Plain", u"~llist"}) {
    base::AddNode(scene, name);
  }
  ICGUIPageObject* page = OpenScene(std::move(scene), {}, u"menus\\main");
  std::string made = Narrow(page->name + u", " + page->baseName);
  for (ICGUIObject* widget : page->items) {
    made += ", " + std::to_string(widget->GetId()) + " " + Narrow(widget->info->name) + " ";
    made += static_cast<char>(widget->info->type);
  }
  EXPECT_EQ(made, "menus\\main.glb, main.glb, 0 ~bstart b, 1 ~ttitle t, 2 ~llist l");
}

TEST_F(Building, WidgetsWithoutTheirNodesAreInert) {
  base::SceneData scene;
  for (const StringView name : kEveryWidget) base::AddNode(scene, name);
  for (ICGUIObject* widget : OpenScene(std::move(scene))->items) {
    ClickHere();
    Type(u"x");
    DrawPages();
    gui->FocusNext();
    Matrix4x4 matrix = Matrix4x4::Identity;
    AABB box;
    widget->GetMatrix(matrix);
    widget->SetMatrix(matrix);
    widget->GetAABB(box);
    widget->ShowNodes(1);
  }
}

TEST_F(Building, PagesOfTheSameBaseNameStaySafe) {
  AddButtonPage(u"same", {u"ok"}, u"anim_in move.glb");
  engine.AddAnimation(u"move.glb", base::MoveNode(u"~bok", {}, {0, 10, 0}, 1.0F));
  AddText(u"second.txt", u"name same.glb anim_in move.glb");
  ICGUIPageObject* first = OpenPage(u"same.txt");
  OpenPage(u"second.txt");
  gui->GetActivePages() = gui->GetRenderPages() = {0, 1};
  for (std::uint32_t page = 0; page < 2; ++page) gui->GetPage(page)->PlayAnim(0, false);
  for (int i = 0; i < 2; ++i) {
    Frame();
    DrawPages();
    first->Unload();
  }
  EXPECT_EQ(first->FindNodeMatrix(u"~bok"), nullptr);
  EXPECT_NE(gui->GetNodeMatrix(1, u"~bok"), nullptr) << "the scene is the second page's";
}

}  // namespace
}  // namespace qen::test
