// The two states of a check button.
#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

class CheckButton : public GuiTest {
 protected:
  CheckButton() {
    base::SceneData scene;
    AddCheckButton(scene, u"a", {-50, 0, 0});
    AddCheckButton(scene, u"b", {0, 0, 0});
    AddCheckButton(scene, u"c", {50, 0, 0});
    AddButton(scene, u"target", {0, 40, 0});
    page = OpenScene(std::move(scene),
                     u"item ~cb { checked 0 tooltip 3 } item ~ca { textid 10 b_checked { textid 11 } "
                     u"b_unchecked { textid 12 } }");
    a = dynamic_cast<ICGUICheckButton*>(Find(u"~ca"));
    b = dynamic_cast<ICGUICheckButton*>(Find(u"~cb"));
    c = dynamic_cast<ICGUICheckButton*>(Find(u"~cc"));
    MoveTo({1, 1});
    Frame();
  }

  // The meshes of the check button's sides that are drawn, and how many texts of the page.
  std::string Shown(const String& name) {
    std::string shown;
    for (const StringView side : {u"checked_", u"unchecked_"}) {
      for (const StringView state : {u"normal_", u"onmouse_", u"disabled_"}) {
        const String node = String(state) + String(side) + name;
        if (page->FindNode(node.c_str()) != nullptr && IsDrawn(node)) shown += Narrow(node) + " ";
      }
    }
    return shown;
  }

  Words DrawnTexts() {
    engine.calls.clear();
    DrawPages();
    Words texts;
    for (const base::Call& call : engine.CallsOf("Drawing::DrawText3D")) {
      texts.push_back(base::ToUtf16(std::get<std::string>(call.arguments.back())));
    }
    return texts;
  }

  std::uint32_t Sum() const { return a->info->checked * 4 + b->info->checked * 2 + c->info->checked; }

  ICGUIPageObject* page = nullptr;
  ICGUICheckButton* a = nullptr;
  ICGUICheckButton* b = nullptr;
  ICGUICheckButton* c = nullptr;
};

TEST_F(CheckButton, FlipsOnceAClick) {
  EXPECT_EQ(Sum(), 5U) << "checked unless it is defined otherwise";
  EXPECT_EQ(Shown(u"a") + Shown(u"b"), "normal_checked_a normal_unchecked_b ");
  Hover(*a);
  Frame();
  EXPECT_EQ(Shown(u"a"), "onmouse_checked_a ");
  EXPECT_EQ(a->state, 2);
  Press();
  for (int i = 0; i < 3; ++i) Frame();
  EXPECT_EQ(a->info->checked, 1U) << "holding flips nothing";
  EXPECT_EQ(a->state, 1);
  ReleaseButton();
  Frame();
  EXPECT_EQ(a->info->checked, 0U);
  for (int i = 0; i < 3; ++i) Frame();
  EXPECT_EQ(a->info->checked, 0U);
  EXPECT_EQ(Shown(u"a"), "onmouse_unchecked_a ");
  Click(*a);
  EXPECT_EQ(a->info->checked, 1U);
}

TEST_F(CheckButton, ReportsItself) {
  const base::Point at = ProjectMiddle(*b);
  EXPECT_EQ(PickAt(at, 0), Picked(b, nullptr));
  EXPECT_EQ(page->focusIndex, b->GetId());
  EXPECT_EQ(PickAt(at, 2), Picked(b, b));
  EXPECT_EQ(PickAt(at, 1), std::nullopt);
}

TEST_F(CheckButton, IsDisabledInEitherState) {
  for (ICGUICheckButton* button : {a, b}) {
    const std::uint32_t before = button->info->checked;
    button->SetDisabled(1);
    Click(*button);
    EXPECT_EQ(button->info->checked, before);
  }
  EXPECT_EQ(Shown(u"a"), "disabled_checked_a ");
  EXPECT_EQ(Shown(u"b"), "disabled_unchecked_b ");
}

TEST_F(CheckButton, HidesWithItsLabelsAtOnce) {
  EXPECT_EQ(DrawnTexts().size(), 6U) << "a label each, and one of its side";
  a->SetVisible(0);
  b->SetVisible(0);
  Frame();
  EXPECT_EQ(Shown(u"a") + Shown(u"b"), "");
  EXPECT_EQ(DrawnTexts().size(), 2U);
  EXPECT_EQ(a->state, 0);
}

TEST_F(CheckButton, ShowsTheLabelOfItsSide) {
  b->SetVisible(0);
  c->SetVisible(0);
  EXPECT_EQ(a->GetCheckedButton()->text->GetTextId(), 11);
  EXPECT_EQ(a->GetUncheckedButton()->text->GetTextId(), 12);
  EXPECT_EQ(a->text->GetTextId(), 10);
  a->text->SetTextId(-1);
  a->text->SetText(u"common");
  a->GetCheckedButton()->text->SetTextId(-1);
  a->GetCheckedButton()->text->SetText(u"on");
  a->GetUncheckedButton()->text->SetTextId(-1);
  a->GetUncheckedButton()->text->SetText(u"off");
  Frame();
  EXPECT_EQ(DrawnTexts(), (Words{u"on", u"common"}));
  a->info->checked = 0;
  Frame();
  EXPECT_EQ(DrawnTexts(), (Words{u"off", u"common"}));
}

TEST_F(CheckButton, CompletesItsCommandsBeforeItFlips) {
  ICGUIObject& target = *Find(u"~btarget");
  Say(*a, {u"enable/disable:~btarget", u"unvisible/visible:~cc", u"settext:~ca", u"play:x"});
  Click(*a);
  std::vector<std::int32_t> values;
  for (const Listener::Record& entry : listener.records) {
    if (values.size() < 4) values.push_back(entry.record.value);
    EXPECT_EQ(entry.record.source, a);
  }
  EXPECT_EQ(values, (std::vector<std::int32_t>{1, 1, 11, 0}));
  EXPECT_EQ(target.info->disabled, 1U);
  EXPECT_EQ(c->info->visible, 0U);
  EXPECT_EQ(a->text->GetTextId(), 11) << "the label of the side that was clicked";
  Click(*a);
  EXPECT_EQ(target.info->disabled, 0U);
  EXPECT_EQ(c->info->visible, 1U);
  EXPECT_EQ(a->text->GetTextId(), 0);
}

TEST_F(CheckButton, IsOneOfARadioGroup) {
  Say(*a, {u"radiogroup:~cb"});
  Say(*a, {u"radiogroup:~cc"});
  Say(*b, {u"radiogroup:~ca"});
  Say(*b, {u"radiogroup:~cc"});
  Say(*c, {u"un/checked:~ca"});
  for (const auto& [button, wanted] : {std::pair{b, 2U}, {b, 2U}, {a, 4U}, {a, 4U}, {b, 2U}}) {
    Click(*button);
    EXPECT_EQ(Sum(), wanted) << Narrow(button->info->name);
  }
  Click(*c);
  EXPECT_EQ(Sum(), 3U);
  Click(*c);
  EXPECT_EQ(Sum(), 6U) << "the opposite of what it is after the flip";
}

TEST_F(CheckButton, WorksWithOneSideOnly) {
  base::SceneData scene;
  const std::int32_t node = base::AddNode(scene, u"~conly");
  AddPart(scene, u"unchecked", u"", node, {}, {8, 4, 1});
  OpenScene(std::move(scene));
  auto& only = dynamic_cast<ICGUICheckButton&>(*Find(u"~conly", 1));
  EXPECT_EQ(only.GetCheckedButton(), nullptr);
  Matrix4x4 matrix = Matrix4x4::Identity;
  AABB box;
  only.GetMatrix(matrix);
  only.GetAABB(box);
  EXPECT_TRUE(box.IsEmpty()) << "the side that it shows has none";
  Aim({});
  ClickHere();
  EXPECT_EQ(only.info->checked, 1U);
  EXPECT_FALSE(IsDrawn(u"normal_unchecked", 1));
  only.info->checked = 0;
  ClickHere();
  EXPECT_EQ(only.info->checked, 1U);
  only.Release();
  only.Release();
  Frame();
  EXPECT_EQ(only.GetUncheckedButton(), nullptr);
}

}  // namespace
}  // namespace qen::test
