// The queue of command records, and the commands that change widgets.
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Commands : public GuiTest {
 protected:
  Commands() {
    base::SceneData scene;
    AddButton(scene, u"one", {-40, 0, 0});
    AddButton(scene, u"two", {40, 0, 0});
    AddButtonPage(u"t", {u"two"});
    OpenScene(std::move(scene));
    OpenPage(u"t.txt");
    one = Find(u"~bone");
    two = Find(u"~btwo");
  }

  ICGUIObject* one = nullptr;
  ICGUIObject* two = nullptr;
};

TEST_F(Commands, AreOfferedUntilSomebodyHandlesThem) {
  Say(*one, {u"play:a:b", u"noargument", u":", u""});
  int deliveries = 0;
  listener.onRecord = [&](std::uint32_t, GuiMessage& record) { record.handled = record.command == u"play"; };
  Click(*one);
  EXPECT_EQ(listener.Texts(), (Words{u"play:a", u"noargument:", u":", u":"}));
  listener.records.clear();
  Deliver();
  EXPECT_EQ(listener.Texts(), (Words{u"noargument:", u":", u":"}));
  listener.onRecord = [&](std::uint32_t, GuiMessage& record) { record.handled = ++deliveries > 3; };
  Deliver();
  listener.records.clear();
  Deliver();
  Deliver();
  EXPECT_EQ(listener.records.size(), 3U) << "handled ones are gone";
}

TEST_F(Commands, EachClickQueuesAllRecordsAgain) {
  Say(*one, {u"a:1", u"b:2"});
  Hover(*one);
  for (int i = 0; i < 2; ++i) {
    Press();
    ReleaseButton();
    Send(message::kFrame);
  }
  Deliver();
  EXPECT_EQ(listener.Texts(), (Words{u"a:1", u"b:2", u"a:1", u"b:2"}));
  gui->Reset();
  listener.records.clear();
  Deliver();
  EXPECT_TRUE(listener.records.empty());
  EXPECT_TRUE(gui->GetActivePages().empty());
}

TEST_F(Commands, ChangeTheWidgetsTheyName) {
  struct Row {
    String text;
    std::uint32_t checked;  // of the source
    std::uint32_t visible;  // of the target afterwards
    std::uint32_t disabled;
    std::uint32_t wantedChecked;
  };
  const Row rows[] = {{u"visible/unvisible:~btwo", 0, 0, 0, 0}, {u"visible/unvisible:~btwo", 1, 1, 0, 0},
                      {u"unvisible/visible:~btwo", 1, 0, 0, 0}, {u"unvisible/visible:~btwo", 0, 1, 0, 0},
                      {u"enable/disable:~btwo", 1, 1, 1, 0},    {u"enable/disable:~btwo", 0, 1, 0, 0},
                      {u"un/checked:~btwo", 0, 1, 0, 1},        {u"un/checked:~btwo", 1, 1, 0, 0},
                      {u"radiogroup:~btwo", 0, 1, 0, 0}};
  for (const Row& row : rows) {
    one->info->messages.clear();
    Say(*one, {row.text});
    one->info->checked = row.checked;
    Click(*one);
    for (const ICGUIObject* target : gui->FindObjects(u"~btwo")) {
      EXPECT_EQ(target->info->visible, row.visible) << Narrow(row.text) << row.checked;
      EXPECT_EQ(target->info->disabled, row.disabled) << Narrow(row.text) << row.checked;
      EXPECT_EQ(target->info->checked, row.wantedChecked) << Narrow(row.text) << row.checked;
    }
  }
  EXPECT_EQ(one->info->checked, 1U) << "the source of a radio group is checked";
  EXPECT_EQ(gui->FindObjects(u"~btwo").size(), 2U);
  listener.records.clear();
  Deliver();
  EXPECT_TRUE(listener.records.empty()) << "all were handled";
}

TEST_F(Commands, NamesThatAreNobodysAreHandledWithoutEffect) {
  GuiMessage record;
  record.command = u"enable/disable";
  record.argument = u"~BTWO";
  record.value = 1;
  Send(message::kCommand, 0, &record);
  EXPECT_EQ(record.handled, 1);
  EXPECT_EQ(two->info->disabled, 0U);
  record.command = u"radiogroup";
  record.argument = u"~btwo";
  two->info->checked = 1;
  Send(message::kCommand, 0, &record);
  EXPECT_EQ(two->info->checked, 1U) << "without a source";
}

// What handlers may do in the middle of things.
class Reentrancy : public Commands {
 protected:
  Reentrancy() {
    for (int i = 0; i < 4; ++i) Say(*one, {u"word:" + String(1, static_cast<Char>(u'0' + i))});
  }
};

TEST_F(Reentrancy, RecordsPostedDuringADeliveryWaitForTheNext) {
  listener.onRecord = [this](std::uint32_t, GuiMessage& record) {
    record.handled = 1;
    if (record.command == u"word") gui->AddRenderPage(0);
  };
  Click(*one);
  EXPECT_EQ(gui->GetRenderPages().size(), 1U) << "the one shown at first";
  Deliver();
  EXPECT_EQ(gui->GetRenderPages().size(), 5U);
  EXPECT_EQ(listener.records.size(), 8U);
}

TEST_F(Reentrancy, AFrameInsideADeliveryKeepsTheFlagsWithTheirRecords) {
  listener.onRecord = [this](std::uint32_t, GuiMessage& record) {
    record.handled = record.argument != u"2";
    Send(message::kFrame);  // purges
    Deliver();              // a delivery inside a delivery does nothing
  };
  Click(*one);
  EXPECT_EQ(listener.records.size(), 4U);
  listener.records.clear();
  listener.onRecord = {};
  Deliver();
  EXPECT_EQ(listener.Texts(), (Words{u"word:2"}));
}

TEST_F(Reentrancy, ResetEndsTheDelivery) {
  listener.onRecord = [this](std::uint32_t, GuiMessage&) { gui->Reset(); };
  Click(*one);
  EXPECT_EQ(listener.Texts(), (Words{u"word:0"}));
}

TEST_F(Reentrancy, AHandlerThatThrowsLocksNothing) {
  listener.onRecord = [](std::uint32_t, GuiMessage&) { throw 1; };
  EXPECT_THROW(Click(*one), int);
  System::daemon->RemoveHandler(&listener, category::kAll);
  System::daemon->AddHandler(&listener, 0x80000000U);
  listener.records.clear();
  listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  Deliver();
  EXPECT_EQ(listener.Texts(), (Words{u"word:0", u"word:1", u"word:2", u"word:3"}));
}

TEST_F(Reentrancy, ResetReleaseAndLoadInsideADelivery) {
  AddText(u"gui.txt", u"name s.txt");
  const std::function<void()> deeds[] = {[this] { gui->Reset(); }, [this] { gui->Release(); },
                                         [this] { gui->Load(u"gui.txt", &engine.camera); }};
  for (const auto& deed : deeds) {
    if (gui->GetPageCount() == 0) OpenPage(u"s.txt");
    gui->SetViewport(&engine.viewport);
    ShowOnly(0);
    one = Find(u"~bone");
    one->info->messages.clear();
    Say(*one, {u"first:", u"un/checked:~btwo", u"addrenderpage:s.glb", u"last:"});
    bool done = false;
    listener.onRecord = [&](std::uint32_t, GuiMessage& record) {
      if (record.command == u"first" && !done) deed();
      done = true;
      record.handled = 1;
    };
    Click(*one);
    Frame();
    DrawPages();
  }
}

TEST_F(Reentrancy, RecordsOfPagesThatAreGoneNameNobody) {
  Say(*one, {u"un/checked:~btwo", u"late:"});
  Hover(*one);
  Press();
  ReleaseButton();
  Send(message::kFrame);
  gui->Release();
  OpenPage(u"s.txt");
  Deliver();
  for (const auto& entry : listener.records) {
    EXPECT_EQ(entry.record.source, nullptr);
    EXPECT_EQ(entry.record.page, nullptr);
  }
  EXPECT_EQ(Find(u"~btwo")->info->checked, 0U);
}

TEST_F(Reentrancy, RecordsOfListEntriesThatAreGoneNameNobody) {
  base::SceneData scene;
  const std::int32_t node = base::AddNode(scene, u"~llist");
  base::AddBox(scene, u"list", node, {}, {30, 30, 1});
  OpenScene(std::move(scene), {}, u"l");
  auto& list = dynamic_cast<ICGUIList&>(*Find(u"~llist", 2));
  for (int i = 0; i < 40; ++i) {
    Say(*list.AddItem(), {u"un/checked:~btwo"});
  }
  Hover(list);
  ReleaseButton();
  Send(message::kFrame);
  std::vector<std::uint32_t> selected;
  ASSERT_EQ(list.GetSelectedIndices(selected).size(), 1U) << "a click on the middle of the box";
  list.Clear();
  Deliver();
  ASSERT_EQ(listener.records.size(), 1U);
  EXPECT_EQ(listener.records[0].record.source, nullptr);
  EXPECT_EQ(two->info->checked, 0U);
}

}  // namespace
}  // namespace qen::test
