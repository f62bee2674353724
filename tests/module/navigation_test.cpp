// Page commands: expansion, order, waiting, undo.
#include "engine/system.h"
#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

using Pages = std::vector<std::uint32_t>;

// Pages a.glb, b.glb, c.glb and d.glb, each with the button "~bgo"; a animates out for half a second, b in.
class Navigation : public GuiTest {
 protected:
  Navigation() {
    engine.AddAnimation(u"move.glb", base::MoveNode(u"~bgo", {}, {0, 10, 0}, 0.5F));
    AddButtonPage(u"a", {u"go"}, u"anim_out move.glb item ~bgo { message setpage:b.glb }");
    AddButtonPage(u"b", {u"go"}, u"anim_in move.glb item ~bgo { message undopage: }");
    AddButtonPage(u"c", {u"go"});
    AddButtonPage(u"d", {u"go"});
    for (const StringView file : {u"a.txt", u"b.txt", u"c.txt", u"d.txt"}) OpenPage(String(file));
  }

  Pages Active() { return gui->GetActivePages(); }
  Pages Rendered() { return gui->GetRenderPages(); }

  void ActivateButton(std::uint32_t page) {
    MoveTo({-1000, -1000});
    Click(*gui->GetPage(page)->items[0]);
  }
};

TEST_F(Navigation, SetPageIsExpandedWhenItIsPosted) {
  gui->GetActivePages() = {0, 3};
  gui->GetRenderPages() = {3, 0, 2};
  gui->SetPage(2);
  EXPECT_EQ(Active(), (Pages{0, 3})) << "nothing happens before the delivery";
  Deliver();
  EXPECT_EQ(listener.Texts(), (Words{u"remactivepage:d.glb", u"remactivepage:a.glb", u"removeallfromrender:c.glb",
                                     u"addrenderpage:c.glb", u"addactivepage:c.glb"}));
  std::vector<int> snapshots;
  for (const auto& entry : listener.records) {
    snapshots.push_back(entry.record.snapshot);
    EXPECT_EQ(entry.record.origin, 1);
    EXPECT_EQ(entry.record.page, gui->GetPage(2));
    EXPECT_EQ(entry.id, message::kCommand);
  }
  EXPECT_EQ(snapshots, (std::vector<int>{1, 0, 0, 0, 0}));
  EXPECT_EQ(Active(), (Pages{2}));
  EXPECT_EQ(Rendered(), (Pages{2}));

  listener.records.clear();
  gui->GetPage(0)->StopAnims();
  Say(*gui->GetPage(2)->items[0], {u"undopage"});
  ActivateButton(2);
  EXPECT_EQ(listener.Texts(),
            (Words{u"remactivepage:c.glb", u"removeallfromrender:", u"addrenderpage:d.glb", u"addrenderpage:a.glb",
                   u"addrenderpage:c.glb", u"addactivepage:a.glb", u"addactivepage:d.glb"}));
  EXPECT_EQ(Active(), (Pages{0, 3}));
  EXPECT_EQ(Rendered(), (Pages{3, 0, 2}));
  EXPECT_TRUE(gui->IsActivePage(3) && gui->IsRenderPage(2));
  EXPECT_FALSE(gui->IsActivePage(2) || gui->IsRenderPage(1));
  ShowOnly(2);
  ActivateButton(2);
  EXPECT_EQ(Active(), (Pages{2})) << "the stack is empty again";
}

TEST_F(Navigation, TheRestWaitsForTheExitAnimation) {
  ShowOnly(0);
  listener.onRecord = {};
  ActivateButton(0);
  EXPECT_TRUE(Active().empty());
  EXPECT_EQ(Rendered(), (Pages{0})) << "the old page is seen to the end";
  listener.records.clear();
  for (int i = 0; i < 3; ++i) {
    Frame(0.1);
    EXPECT_EQ(Rendered(), (Pages{0}));
  }
  EXPECT_EQ(listener.records.size(), 9U) << "three records, offered three times";
  Frame(0.4);
  Frame();
  EXPECT_EQ(Rendered(), (Pages{1}));
  EXPECT_EQ(Active(), (Pages{1}));
  EXPECT_NE(gui->GetPage(1)->GetPlayingAnim(), nullptr) << "and the new one comes in";
  Frame(1.0);
  ActivateButton(1);
  EXPECT_EQ(Active(), (Pages{0})) << "and back";
  EXPECT_EQ(Rendered(), (Pages{0}));
}

TEST_F(Navigation, ACommandOfAListEntryWaitsForItsListsPage) {
  base::SceneData scene;
  AddList(scene, u"long");
  OpenScene(std::move(scene), u"anim_out move.glb item ~llong { listitem { message setpage:b.glb } }", u"l");
  Aim({0, 13, -1});
  ClickHere();
  EXPECT_EQ(Rendered(), (Pages{4})) << "the list's page is seen to the end";
  Frame(1.0);
  Frame();
  EXPECT_EQ(Rendered(), (Pages{1}));
}

TEST_F(Navigation, AnEmptyNameNamesNoPage) {
  OpenPage(u"missing.txt");
  gui->AddActivePage(77);
  gui->AddRenderPage(77);
  Deliver();
  EXPECT_TRUE(Active().empty());
  EXPECT_TRUE(Rendered().empty());
}

// Everything that a page change asks of the engine, from the click to the entrance of the new page.
TEST_F(Navigation, AChangeOfPagesPlaysInItsOrder) {
  engine.AddSound(u"in.wav");
  engine.AddSound(u"out.wav");
  engine.AddSound(u"click.wav");
  AddButtonPage(u"from", {u"go"},
                u"anim_out move.glb onclickwav click.wav onanimoutwav out.wav item ~bgo { message setpage:to.glb }");
  AddButtonPage(u"to", {u"go"}, u"anim_in move.glb onaniminwav in.wav");
  const std::uint32_t from = gui->GetPageCount();
  OpenPage(u"from.txt");
  OpenPage(u"to.txt");
  ShowOnly(from);
  Hover(*gui->GetPage(from)->items[0]);
  Frame();
  engine.calls.clear();
  ReleaseButton();
  for (int i = 0; i < 5; ++i) Frame(0.2);

  std::vector<std::string> story;
  for (const base::Call& call : engine.calls) {
    for (const std::string_view name : {"AnimCtrl::PlayAnimation", "ISound::Play", "ISceneMng::DisableScene"}) {
      if (call.name == name) story.push_back(call.name);
    }
    if (call.name == "MsgDaemon::ProcMsg" && std::get<std::int64_t>(call.arguments[0]) == message::kFrame) {
      story.emplace_back("frame");
    }
  }
  EXPECT_EQ(engine.sound.played, (std::vector<std::string>{"click.wav", "out.wav", "in.wav"}));
  EXPECT_EQ(story, (std::vector<std::string>{"frame", "ISound::Play", "AnimCtrl::PlayAnimation", "ISound::Play",
                                             "frame", "frame", "frame", "frame", "ISceneMng::DisableScene",
                                             "AnimCtrl::PlayAnimation", "ISound::Play"}));
}

TEST_F(Navigation, ListOperationsFollowTheirLetter) {
  engine.calls.clear();
  gui->AddRenderPage(2);
  gui->AddRenderPage(2);
  gui->AddActivePage(3);
  gui->AddActivePage(3);
  Deliver();
  EXPECT_EQ(Rendered(), (Pages{2, 2}));
  EXPECT_EQ(Active(), (Pages{3, 3}));
  gui->RemRenderPage(2);
  gui->RemActivePage(3);
  gui->RemRenderPage(0);
  gui->AddRenderPage(0xFFFFFFFF);
  Deliver();
  EXPECT_EQ(Rendered(), (Pages{2}));
  EXPECT_EQ(Active(), (Pages{3}));
  gui->SetPage(77);
  Deliver();
  EXPECT_TRUE(Active().empty());
  EXPECT_TRUE(Rendered().empty());
}

TEST_F(Navigation, DrawnPagesAreEnabledAndOthersDisabled) {
  const auto disabled = [this] {
    std::vector<std::string> calls;
    for (const base::Call& call : engine.CallsOf("ISceneMng::DisableScene")) {
      calls.push_back(std::get<std::string>(call.arguments[0]) + (std::get<bool>(call.arguments[1]) ? " off" : " on"));
    }
    engine.calls.clear();
    return calls;
  };
  disabled();
  gui->AddRenderPage(2);
  gui->RemRenderPage(2);
  gui->RemRenderPage(2);
  Deliver();
  EXPECT_EQ(disabled(), (std::vector<std::string>{"c.glb_scene on", "c.glb_scene off"}));
}

TEST_F(Navigation, QuietChangesPagesWithoutAnimationAndSound) {
  gui->SetQuiet(1);
  gui->AddActivePage(1);
  Deliver();
  EXPECT_EQ(Active(), (Pages{1}));
  EXPECT_EQ(gui->GetPage(1)->GetPlayingAnim(), nullptr);
  gui->SetQuiet(0);
  gui->RemActivePage(0);
  Deliver();
  EXPECT_NE(gui->GetPage(0)->GetPlayingAnim(), nullptr) << "plays although the page was not active";
}

TEST_F(Navigation, SnapshotsAreTakenEvenForPagesThatAreNone) {
  GuiMessage record;
  record.command = u"addactivepage";
  record.argument = u"nobody";
  record.snapshot = 1;
  Send(message::kCommand, 0, &record);
  EXPECT_EQ(record.handled, 1);
  ShowOnly(2);
  Say(*gui->GetPage(2)->items[0], {u"undopage"});
  ActivateButton(2);
  EXPECT_TRUE(Active().empty()) << "back to the lists of the snapshot";
  gui->ClearUndo();
  ShowOnly(2);
  ActivateButton(2);
  EXPECT_EQ(Active(), (Pages{2}));
}

TEST_F(Navigation, UnknownWordsAndUndoAreLeftUnhandled) {
  for (const StringView word : {u"undopage", u"play", u"", u"SETPAGE"}) {
    GuiMessage record;
    record.command = word;
    Send(message::kCommand, 0, &record);
    EXPECT_EQ(record.handled, 0) << Narrow(word);
  }
}

}  // namespace
}  // namespace qen::test
