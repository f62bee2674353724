// Whatever happens while a definition is saved, a whole one is found afterwards.
#include "tests/module/data_folder.h"
#include "tests/saving/failing_files.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

// With each kind of what is saved.
class SaveFaults : public SavingTest, public ::testing::WithParamInterface<std::string> {
 protected:
  SaveFaults() {
    AddButtonPage(u"menu", {u"ok", u"quit"});
    AddText(u"bag.txt", u"name menu.glb");
    AddText(u"pages\\saved.txt", u"texture a.png");
    AddText(u"gui.txt", u"lang pages\\saved.txt tool pages\\saved.txt name menu.txt bagname bag.txt");
    gui->Load(u"gui.txt", nullptr);
    BeginAnew();
    first = BytesOf(file);
    SaveSecond(0);
    second = BytesOf(file);
    EXPECT_FALSE(first.empty());
    EXPECT_TRUE(first != second);
  }

  // Saves one of two contents. Whether that was done, as far as the caller is told.
  bool Save(bool isSecond) {
    gui->GetPage(0)->items.at(0)->info->tooltip = isSecond ? 2 : 1;
    gui->GetPage(1)->name = isSecond ? u"second.glb" : u"first.glb";
    gui->GetStyleColor() = isSecond ? 2 : 1;
    if (GetParam() == "Page") return gui->SavePage(u"pages\\saved.txt", 0);
    if (GetParam() == "Bag") return gui->SavePage(u"pages\\saved.txt", 1);
    if (GetParam() == "Style") gui->SaveStyle();
    if (GetParam() == "Language") gui->SaveLanguage(System::GetBasePath() + (isSecond ? u"second" : u"first"));
    return BytesOf(file) == second;
  }

  // Nothing is there but the first content, and what only its owner may read.
  void BeginAnew() {
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry);
    data.Write("first", std::string(100000, '1'));
    data.Write("second", std::string(100000, '2'));
    Save(false);
    fs::remove_all(backup.parent_path());
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    engine.errors.clear();
  }

  bool SaveSecond(std::size_t struckCall, Fault fault = Fault::Fail) {
    StrikeFileCall(struckCall, fault);
    const bool saved = Save(true);
    calls = CountedFileCalls();
    return saved;
  }

  [[nodiscard]] bool IsThere(bool isSecond) const { return BytesOf(file) == (isSecond ? second : first); }

  const fs::path file = folder / "pages/saved.txt";
  const fs::path backup = folder / "pages/bak/saved.txt0";
  std::string first;
  std::string second;
  std::vector<std::string> calls;  // of the last save
};

TEST_P(SaveFaults, ACallThatFailsLosesNothing) {
  const std::vector<std::string> all = calls;
  const auto lastOfBackup = static_cast<std::size_t>(std::ranges::find(all, "rename") - all.begin()) + 1;
  ASSERT_GT(all.size(), lastOfBackup + 4) << "the calls are those of the libraries";
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_TRUE(all[i] != "rename" || all[i - 2] == "fsync") << "it is on the disk before it has its name";
  }
  for (std::size_t call = 1; call <= all.size(); ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + ": " + all[call - 1]);
    BeginAnew();
    const bool saved = SaveSecond(call);
    EXPECT_TRUE(IsThere(saved)) << "the caller is told";
    EXPECT_EQ(engine.errors.size(), GetParam() == "Page" && !saved ? 1U : 0U);
    EXPECT_TRUE(call <= lastOfBackup || BytesOf(backup) == first) << "what there was can be found";
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << "left lying about: " << entry.path();
    }
  }
}

TEST_P(SaveFaults, AFileInAFolderThatMayNotBeWrittenIsWrittenInPlace) {
  std::size_t count = 0;
  for (std::size_t call = 0; call <= count; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    BeginAnew();
    RefuseNewFiles(true);
    const bool saved = SaveSecond(call);
    RefuseNewFiles(false);
    if (call == 0) count = calls.size();
    EXPECT_TRUE(IsThere(saved));
    EXPECT_TRUE(saved || call > 0);
    EXPECT_FALSE(fs::exists(backup.parent_path()));
  }
}

TEST_P(SaveFaults, AProcessKilledAtAnyCallLosesNothing) {
  const std::vector<std::string> all = calls;
  for (std::size_t call = 1; call <= all.size(); ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + ": " + all[call - 1]);
    BeginAnew();
    EXPECT_EXIT(SaveSecond(call, Fault::Kill), ::testing::ExitedWithCode(kKilled), "");
    EXPECT_TRUE(IsThere(false) || (IsThere(true) && BytesOf(backup) == first));
    EXPECT_TRUE(SaveSecond(0) && IsThere(true)) << "what is left lying about is in nobody's way";
  }
}

INSTANTIATE_TEST_SUITE_P(Every, SaveFaults, ::testing::Values("Page", "Bag", "Style", "Language"),
                         [](const auto& tested) { return tested.param; });

}  // namespace
}  // namespace qen::test
