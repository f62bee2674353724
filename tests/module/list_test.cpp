// What a list shows: its rows, their range, and how they are drawn.
#include <sstream>

#include "tests/module/list_fixture.h"

namespace qen::test {
namespace {

class List : public ListTest {
 protected:
  // The entries that are lit, of those in sight.
  Indices Lit() {
    Indices lit;
    const auto top = static_cast<std::uint32_t>(list->info->position);
    for (std::uint32_t i = top; i < std::min(top + kRows, list->GetItemCount()); ++i) {
      if (Item(i).state == 1) lit.push_back(i);
    }
    return lit;
  }
};

TEST_F(List, LightsTheRowsOfABoxThatIsNotCentred) {
  base::SceneData scene;
  const std::int32_t node = base::AddNode(scene, u"~llong", -1, {0, 20, 0});
  base::AddBox(scene, u"list", node, {}, {30, 15, 1});
  ShiftMesh(scene, {0, -15, 0});  // it hangs from the node's origin
  OpenScene(std::move(scene));
  list = dynamic_cast<ICGUIList*>(Find(u"~llong"));
  Fill(20);
  for (const std::uint32_t row : {0U, 4U, 9U}) {
    Aim(RowPlace(row) + Vec3{0, 5, 0});
    Frame();
    EXPECT_EQ(Lit(), Indices{row});
  }
}

TEST_F(List, DrawsItsRowsInOrderAndShadowsFirst) {
  Open(
      u"centered 1 shadowoff 20 color_normal 112233 color_select 445566 color_onmouse 778899 "
      u"color_disabled aabbcc color_shadow ddeeff color_shadowsel 102030",
      {5, 7, 0});
  Fill(5);
  Item(1).selected = 1;
  Item(2).info->disabled = 1;
  Item(3).textId = 4711;
  Item(4).selected = 1;
  Item(4).info->disabled = 1;
  Aim(RowPlace(0) + Vec3{5, 7, 0});
  Frame();
  engine.calls.clear();
  DrawPages();

  std::ostringstream drawn;
  std::size_t submitted = 0;
  for (const base::Call& call : engine.calls) {
    if (call.name == "IRender::Submit" && submitted == 0) submitted = drawn.str().size();
    if (call.name == "Drawing::SetFont") drawn << std::get<std::string>(call.arguments[0]) << "\n";
    if (call.name != "Drawing::DrawText3D") continue;
    std::istringstream matrix(std::get<std::string>(call.arguments[0]));
    float numbers[16] = {};
    for (float& number : numbers) matrix >> number;
    drawn << numbers[12] << ' ' << numbers[13] << ' ' << numbers[14] << ' ' << std::get<double>(call.arguments[1])
          << ' ' << std::get<double>(call.arguments[2]) << ' ' << std::get<std::int64_t>(call.arguments[3]) << ' '
          << std::hex << std::get<std::int64_t>(call.arguments[4]) << std::dec << ' '
          << std::get<std::string>(call.arguments[5]) << "\n";
  }
  EXPECT_EQ(drawn.str(),
            "Courier -21 0 700\n"
            "-23 17.06 2 60 30 33 ffffeedd 0\n"
            "-25 19.06 0 60 30 33 ff998877 0\n"
            "-23 14.12 2 60 27.06 33 ff302010 1\n"
            "-25 16.12 0 60 27.06 33 ff665544 1\n"
            "-23 11.18 2 60 24.12 33 ffffeedd 2\n"
            "-25 13.18 0 60 24.12 33 ffccbbaa 2\n"
            "-23 8.24 2 60 21.18 33 ffffeedd N/A\n"
            "-25 10.24 0 60 21.18 33 ff332211 N/A\n"
            "-23 5.3 2 60 18.24 33 ff302010 4\n"
            "-25 7.3 0 60 18.24 33 ffccbbaa 4\n");
  EXPECT_EQ(submitted, drawn.str().size()) << "the mesh comes after the texts";
  ASSERT_EQ(engine.CallsOf("Drawing::BeginText3D").size(), 1U);
  EXPECT_FLOAT_EQ(static_cast<float>(std::get<double>(engine.CallsOf("Drawing::BeginText3D")[0].arguments[0])), kScale);
  EXPECT_EQ(engine.CallsOf("Drawing::EndText").size(), 1U);
}

TEST_F(List, IsHiddenWithItsSlideBarAtOnce) {
  Open();
  Fill(3);
  Frame();
  EXPECT_TRUE(IsDrawn(u"list_long"));
  EXPECT_TRUE(IsDrawn(u"normal_baryslidery_long"));
  list->SetVisible(0);
  Frame();
  engine.calls.clear();
  EXPECT_FALSE(IsDrawn(u"list_long"));
  EXPECT_FALSE(IsDrawn(u"normal_baryslidery_long"));
  EXPECT_FALSE(IsDrawn(u"normal_upslidery_long"));
  EXPECT_TRUE(engine.CallsOf("Drawing::DrawText3D").empty());
}

TEST_F(List, ShowsTheTooltipOfTheRow) {
  AddText(u"texts.txt", u"lang english { str4 Four str5 Five }");
  AddText(u"style.txt", u"texture panel.png font Serif { height -20 }");
  AddText(u"gui.txt", u"lang texts.txt tool style.txt");
  gui->Load(u"gui.txt", &engine.camera);
  Open(u"tooltip 4");
  Fill(2);
  Item(1).info->tooltip = 5;
  const auto tooltip = [this] {
    for (int i = 0; i < 3; ++i) Frame(1.0);
    engine.calls.clear();
    engine.Draw([this] { gui->DrawTooltip(&engine.viewport); });
    const auto drawn = engine.CallsOf("Drawing::DrawText2D");
    return drawn.empty() ? std::string() : std::get<std::string>(drawn[0].arguments.back());
  };
  Aim(RowPlace(1));
  EXPECT_EQ(tooltip(), "Five");
  Aim(RowPlace(0));
  EXPECT_EQ(tooltip(), "") << "the list's own is its slide bar's";
  Item(1).info->disabled = 1;
  Aim(RowPlace(1));
  EXPECT_EQ(tooltip(), "");
}

}  // namespace
}  // namespace qen::test
