// Entry points, states of the book, and what messages do in them.
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

TEST(Exports, WorkWithoutAnEngineAndInAnyOrder) {
  for (int i = 0; i < 20; ++i) {
    const Module module;
    const auto deactivate = module.Export<DeactivateDllFunction>(kDeactivateDll);
    deactivate();
    EXPECT_EQ(module.Export<QueryInterfaceTypeFunction>(kQueryInterfaceType)(), 9U);
    EXPECT_EQ(StringView(module.Export<QueryDescriptionStringFunction>(kQueryDescriptionString)()), u"Gui 1.0");
    IGui* gui = module.Export<ActivateDllFunction>(kActivateDll)();
    EXPECT_FALSE(gui->Load(u"gui.txt", nullptr));
    EXPECT_TRUE(gui->AddPage(u"page.txt", nullptr));
    EXPECT_FALSE(gui->Update(0, 0, 0));
    deactivate();
    deactivate();
  }
}

using Lifecycle = GuiTest;

TEST_F(Lifecycle, IgnoresEveryMessageUntilAPageIsAdded) {
  gui->GetActivePages() = {0};
  for (std::uint32_t id = 0; id < 0x9000; ++id) EXPECT_EQ(System::daemon->ProcMsg(id, 1, 0, category::kGui), 0);
  EXPECT_EQ(CallNames({"GetCursorPos", "ITimer::GetTime", "IIMEQUENRIN"}), std::vector<std::string>());
}

TEST_F(Lifecycle, AnswersForPagesThatAreNoneWithNothing) {
  AddButtonPage(u"menu", {u"ok"});
  gui->AddPage(u"menu.txt", &engine.camera);
  EXPECT_FALSE(gui->Update(0, 0, 0) || gui->Render(nullptr)) << "without a viewport";
  for (const std::uint32_t page : {1U, 0xFFFFFFFFU}) {
    EXPECT_TRUE(gui->GetPageName(page).empty() && gui->GetPageFile(page).empty() && gui->GetPageItems(page).empty());
    EXPECT_TRUE(gui->GetPageAnims(page) == nullptr && gui->GetNodeMatrix(page, u"~bok") == nullptr);
    EXPECT_TRUE(!gui->SavePage(u"x", page) && gui->FindObject(page, u"~bok") == nullptr);
  }
  EXPECT_EQ(gui->FindObject(0, u"OK"), nullptr);
  EXPECT_EQ(engine.errors, Words{u"Gui object not found OK"});
}

}  // namespace
}  // namespace qen::test
