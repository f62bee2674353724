// Entry points, states of the book, and what it answers before and after pages exist.
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

TEST(Exports, AnswerBeforeActivationAndSurviveDeactivationAlone) {
  const base::RecordingEngine engine;
  const Module module;
  EXPECT_EQ(module.Export<QueryInterfaceTypeFunction>(kQueryInterfaceType)(), 9U);
  EXPECT_EQ(StringView(module.Export<QueryDescriptionStringFunction>(kQueryDescriptionString)()), u"Gui 1.0");
  module.Export<DeactivateDllFunction>(kDeactivateDll)();
  EXPECT_NE(module.Export<ActivateDllFunction>(kActivateDll)(), nullptr);
  module.Export<DeactivateDllFunction>(kDeactivateDll)();
  module.Export<DeactivateDllFunction>(kDeactivateDll)();
}

TEST(Exports, LoadsAndUnloadsWithoutAnEngine) {
  for (int i = 0; i < 20; ++i) {
    const Module module;
    IGui* gui = module.Export<ActivateDllFunction>(kActivateDll)();
    EXPECT_FALSE(gui->Load(u"gui.txt", nullptr));
    EXPECT_TRUE(gui->AddPage(u"page.txt", nullptr));
    EXPECT_FALSE(gui->Update(0, 0, 0));
    module.Export<DeactivateDllFunction>(kDeactivateDll)();
  }
}

class Lifecycle : public GuiTest {};

TEST_F(Lifecycle, IgnoresEveryMessageUntilAPageIsAdded) {
  gui->GetActivePages() = {0};
  for (const std::uint32_t id : {message::kMouseMove, message::kButtonDown, message::kFrame, message::kDeliverQueue,
                                 message::kRender, message::kCommand, message::kKey, 0x12345U}) {
    EXPECT_EQ(System::daemon->ProcMsg(id, 1, 0, category::kGui), 0);
  }
  EXPECT_TRUE(engine.CallsOf("GetCursorPos").empty());
  EXPECT_TRUE(engine.CallsOf("ITimer::GetTime").empty());
}

TEST_F(Lifecycle, NeedsAViewportAfterEachPage) {
  AddButtonPage(u"menu", {u"ok"});
  EXPECT_TRUE(gui->AddPage(u"menu.txt", &engine.camera));
  EXPECT_FALSE(gui->Update(0, 0, 0));
  gui->SetViewport(&engine.viewport);
  EXPECT_TRUE(gui->Update(0, 0, 0));
  gui->AddPage(u"menu.txt", &engine.camera);
  EXPECT_EQ(gui->GetViewport(), nullptr);
}

TEST_F(Lifecycle, AnswersOutOfRangeIndexesWithNothing) {
  AddButtonPage(u"menu", {u"ok"});
  OpenPage(u"menu.txt");
  for (const std::uint32_t page : {1U, 0xFFFFFFFFU}) {
    EXPECT_EQ(gui->GetPageName(page), u"");
    EXPECT_EQ(gui->GetPageFile(page), u"");
    EXPECT_EQ(gui->GetPage(page), nullptr);
    EXPECT_TRUE(gui->GetPageItems(page).empty());
    EXPECT_EQ(gui->GetPageAnims(page), nullptr);
    EXPECT_EQ(gui->GetNodeMatrix(page, u"~bok"), nullptr);
    EXPECT_EQ(gui->FindObject(page, u"~bok"), nullptr);
    EXPECT_FALSE(gui->SavePage(u"x", page));
  }
  EXPECT_TRUE(engine.errors.empty());
  EXPECT_EQ(gui->FindObject(0, u"OK"), nullptr);
  ASSERT_EQ(engine.errors.size(), 1U);
  EXPECT_EQ(engine.errors[0], u"Gui object not found OK");
  EXPECT_EQ(gui->FindPage(u"MENU.glb"), -1);
  EXPECT_EQ(gui->FindPage(u"menu.glb"), 0);
}

TEST_F(Lifecycle, ReleaseGivesEverythingBackAndTheGuiLoadsAgain) {
  AddButtonPage(u"menu", {u"ok", u"quit"}, u"onclickwav click.wav\n");
  engine.AddSound(u"click.wav");
  AddText(u"sounds.txt", u"no scene, onclickwav click.wav");
  for (int i = 0; i < 3; ++i) {
    OpenPage(u"menu.txt");
    OpenPage(u"sounds.txt");
    ShowOnly(0);
    DrawPages();
    gui->Release();
    EXPECT_EQ(gui->GetPageCount(), 0U);
    EXPECT_TRUE(gui->GetActivePages().empty());
    EXPECT_TRUE(gui->GetRenderPages().empty());
    EXPECT_TRUE(engine.render.geometries.empty());
    EXPECT_TRUE(engine.sound.loaded.empty());
    const std::size_t calls = engine.calls.size();
    Send(message::kFrame);
    EXPECT_EQ(engine.CallsOf("IIMEQUENRIN::Enable").size(), 0U) << "of " << engine.calls.size() - calls;
  }
}

}  // namespace
}  // namespace qen::test
