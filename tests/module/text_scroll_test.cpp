// Texts that scroll through a slide bar.
#include "tests/module/text_fixture.h"

namespace qen::test {
namespace {

class TextScroll : public TextTest {
 protected:
  // Lines of one letter each.
  void SetLines(std::size_t count) {
    String lines;
    for (std::size_t i = 0; i < count; ++i) lines += u"x\n";
    lines.pop_back();
    text->SetText(lines.c_str());
  }
};

// A line is 2.94 high, the box 20.
TEST_F(TextScroll, MeasuresHowFarItGoes) {
  OpenScrolling(u"min 5");
  struct Row {
    std::size_t lines;
    std::int32_t max;
  };
  for (const Row& row : {Row{20, 14}, {6, 0}, {7, 1}, {1, -4}, {1000, 286}}) {
    SetLines(row.lines);
    Drawn();
    EXPECT_EQ(text->info->min, 0);
    EXPECT_EQ(text->info->max, row.max) << row.lines;
  }
  const base::Call measured = engine.CallsOf("Drawing::GetTextRect").back();
  EXPECT_EQ(std::get<std::string>(measured.arguments[0]), "0 0 40 0");
  EXPECT_EQ(std::get<std::int64_t>(measured.arguments[1]), 0x50);
  EXPECT_EQ(CallNames({"Drawing::"}),
            (std::vector<std::string>{"Drawing::BeginText3D", "Drawing::SetFont", "Drawing::DrawText3D",
                                      "Drawing::GetTextRect", "Drawing::EndText"}));
}

TEST_F(TextScroll, MovesTheTextAndItsWindow) {
  OpenScrolling();
  SetLines(20);
  EXPECT_EQ(Drawn().substr(0, 32), "-20 7.06 0 | 0 0 40 20 | 50 ffff");
  text->info->position = 1;
  EXPECT_EQ(Drawn().substr(0, 28), "-20 10 0 | 0 2 40 22 | 50 ff");
  text->info->position = 500;
  EXPECT_EQ(Drawn().substr(0, 32), "-20 48.22 0 | 0 41 40 61 | 50 ff") << "the last position";
  SetLines(2);
  Drawn();
  Drawn();
  EXPECT_EQ(text->info->position, -3) << "what fits goes to the end of its box";
  EXPECT_EQ(Drawn().substr(0, 32), "-20 -1.76 0 | 0 -8 40 12 | 50 ff");
}

TEST_F(TextScroll, IsMovedByItsSlideBar) {
  OpenScrolling();
  SetLines(20);
  Drawn();
  Aim({30, 0, -1});
  Type(u"((");  // the wheel, twice
  EXPECT_EQ(text->info->position, 2);
  Aim({30, -36, -1});
  ClickHere();
  EXPECT_EQ(text->info->position, 3);
  Aim({30, -29, -1});
  Press();
  Frame();
  EXPECT_EQ(text->info->position, 14);
}

TEST_F(TextScroll, KeepsTheButtonsInSightWhileTheBarIsUsed) {
  OpenScrolling();
  Frame();
  for (const Vec3& place : {Vec3{30, 0, -1}, Vec3{30, 30, -1}, Vec3{30, 36, -1}}) {
    Aim(place);
    Frame();
    for (const StringView part : {u"bary", u"slider", u"down", u"up"}) {
      EXPECT_TRUE(IsDrawn(u"normal_" + String(part) + u"slidery_text")) << Narrow(part) << place.y;
    }
  }
  text->SetVisible(0);
  Frame();
  for (const StringView part : {u"bary", u"slider", u"down", u"up"}) {
    EXPECT_FALSE(IsDrawn(u"normal_" + String(part) + u"slidery_text")) << Narrow(part);
  }
}

}  // namespace
}  // namespace qen::test
