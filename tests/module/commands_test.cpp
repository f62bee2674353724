// The commands that change widgets, and what may happen while they wait and are delivered.
#include <algorithm>

#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

class Commands : public GuiTest {
 protected:
  Commands() {
    base::SceneData scene;
    AddButton(scene, u"one", {-40, 0, 0});
    AddButton(scene, u"two", {40, 0, 0});
    AddList(scene, u"list", {0, -30, 0});
    AddButtonPage(u"t", {u"two"});
    OpenScene(std::move(scene), u"item ~llist { listitem { message un/checked:~btwo message setpage:t.glb } }");
    OpenPage(u"t.txt");
    one = Find(u"~bone");
    two = Find(u"~btwo");
  }

  void ClickWith(const Words& messages) {
    one->info->messages.clear();
    Say(*one, messages);
    Click(*one);
  }

  // A click that is not delivered yet.
  void Post() {
    ReleaseButton();
    Send(message::kFrame);
  }

  ICGUIObject* one = nullptr;
  ICGUIObject* two = nullptr;
};

TEST_F(Commands, ChangeOneFlagOfTheWidgetsTheyName) {
  // Visible, disabled, checked afterwards, by a source that is not checked and by one that is; a dot: as before.
  const std::tuple<String, std::string, std::string> rows[] = {{u"visible/unvisible", "0..", "1.."},
                                                               {u"unvisible/visible", "1..", "0.."},
                                                               {u"enable/disable", ".0.", ".1."},
                                                               {u"un/checked", "..1", "..0"},
                                                               {u"radiogroup", "..0", "..0"}};
  for (std::size_t i = 0; i < 4 * std::size(rows); ++i) {
    const auto& [word, unchecked, checked] = rows[i / 4];
    const std::uint32_t before = i % 2;
    std::string wanted = i % 4 < 2 ? unchecked : checked;
    std::ranges::replace(wanted, '.', before == 0 ? '0' : '1');
    const auto widgets = gui->FindObjects(u"~btwo");
    ASSERT_EQ(widgets.size(), 2U) << "one on either page";
    for (ICGUIObject* it : widgets) it->info->visible = it->info->disabled = it->info->checked = before;
    one->info->checked = i % 4 < 2 ? 0 : 2;
    ClickWith({word + u":~btwo:more"});
    for (const ICGUIObject* it : widgets) {
      const ItemInfo& info = *it->info;
      const std::string flags = std::to_string(1000 + info.visible * 100 + info.disabled * 10 + info.checked);
      EXPECT_EQ(flags.substr(1), wanted) << Narrow(word);
    }
    EXPECT_EQ(one->info->checked, i % 4 < 2 ? word == u"radiogroup" : 2U);
  }
}

TEST_F(Commands, WaitOnWhenAHandlerThrows) {
  listener.onRecord = [](std::uint32_t, GuiMessage&) { throw 1; };
  EXPECT_THROW(ClickWith({u"word:0", u"word:1"}), int);
  System::daemon->RemoveHandler(&listener, category::kAll);
  System::daemon->AddHandler(&listener, 0x80000000U);
  listener.records.clear();
  listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  Deliver();
  EXPECT_EQ(listener.Texts(), (Words{u"word:0", u"word:1"}));
}

TEST_F(Commands, MayReleaseTheGui) {
  listener.onRecord = [this](std::uint32_t, GuiMessage&) { gui->Release(); };
  ClickWith({u"first:", u"un/checked:~btwo", u"addrenderpage:s.glb", u"last:"});
  Frame();
  DrawPages();
  EXPECT_EQ(gui->GetPageCount(), 0U);
}

TEST_F(Commands, OfTheGoneNameNobody) {
  auto& list = dynamic_cast<ICGUIList&>(*Find(u"~llist"));
  Say(*one, {u"un/checked:~btwo", u"radiogroup:~btwo"});
  Aim({0, -17, -1});
  Post();
  list.Clear();
  Hover(*one);
  Post();
  gui->Release();
  OpenPage(u"s.txt");
  Find(u"~btwo")->info->checked = 1;
  Deliver();
  ASSERT_EQ(listener.records.size(), 7U) << "setpage are four";
  EXPECT_EQ(listener.records[6].record.page, nullptr);
  for (const auto& entry : listener.records) EXPECT_EQ(entry.record.source, nullptr) << Narrow(entry.record.command);
  EXPECT_EQ(Find(u"~btwo")->info->checked, 1U);
}

}  // namespace
}  // namespace qen::test
