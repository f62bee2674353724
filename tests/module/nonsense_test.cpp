// Definitions with numbers that make no sense, on a widget of every kind.
#include "tests/module/every_widget.h"

namespace qen::test {
namespace {

class Nonsense : public GuiTest {
 protected:
  Nonsense() {
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  }

  void Open(StringView properties) {
    AddPageOfEveryWidget(engine, u"s", properties);
    OpenPage(u"s.txt");
    page = gui->GetPageCount() - 1;
    ShowOnly(page);
  }

  // Uses every spot of the view: rests on it, clicks, holds, types.
  void PlayWithAll() {
    for (std::int32_t y = 20; y < 600; y += 45) {
      for (std::int32_t x = 10; x < 800; x += 45) {
        MoveTo({x, y});
        ClickHere();
        Type(u"(&x\b");
      }
      DrawPages();
    }
  }

  std::uint32_t page = 0;
};

constexpr StringView kDefinitions[] = {
    u"min 100 max 0 position 50",
    u"min 5 max 5 position 5",
    u"min -2147483648 max 2147483647 position 2147483647",
    u"min 2147483647 max -2147483648 position -2147483648",
    u"maxchars -1 maxselect -1 editabled -1 centered -1 visible -1",
    u"maxchars -2147483648 maxselect 2147483647 editabled 1",
    u"maxchars 2147483647 maxselect -2147483648 editabled 1 checked -1",
    u"font \"\" { height 0 width 0 weight 0 italic 999 }",
    u"font Courier { height 2147483647 width 2147483647 weight 2147483647 }",
    u"font Courier { height -2147483648 width -2147483648 weight -2147483648 }",
    u"shadowoff 1e39 alpha 70000 scale -1e39",
    u"shadowoff -1e30 alpha -70000",
    u"shadowoff nan color_normal ffffffffffffffff color_shadow -1",
    u"textid 2147483647 tooltip 2147483647 listitem { textid 2147483647 commentid -7 tooltip -7 }",
    u"textid -2147483648 tooltip -2147483648 id -2147483648 listitem { textid -2147483648 }",
    u"message enable/disable message : message settext:~ttext message radiogroup:~ccheck message visible/unvisible:",
};

TEST_F(Nonsense, IsStoodByEveryWidget) {
  for (const StringView definition : kDefinitions) {
    Open(definition);
    ASSERT_EQ(gui->GetPageItems(page).size(), std::size(kEveryWidget));
    auto& list = dynamic_cast<ICGUIList&>(*Find(u"~llist", page));
    for (int i = 0; i < 40; ++i) list.AddItem();
    PlayWithAll();
    for (const ICGUIObject* widget : gui->GetPageItems(page)) {
      const std::string what = Narrow(definition) + " " + Narrow(widget->info->name);
      if (widget->info->type == widget_type::kButton || widget->info->type == widget_type::kPicture ||
          widget->info->type == widget_type::kCheckButton || widget->info->name == u"~ttext") {
        continue;  // these leave the three numbers as they are
      }
      EXPECT_LE(widget->info->position, std::max(widget->info->max, 0)) << what;
      EXPECT_GE(widget->info->position, std::min(widget->info->min, widget->info->max)) << what;
    }
    EXPECT_FALSE(engine.render.frame.items.empty());
  }
}

}  // namespace
}  // namespace qen::test
