// Whatever happens while a definition is saved, a whole one is found afterwards.
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <array>
#include <functional>

#include "base/call_record.h"
#include "tests/module/data_folder.h"
#include "tests/saving/failing_files.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

enum class Saved { Page, Bag, Style, Language };

class SaveFaults : public SavingTest, public ::testing::WithParamInterface<Saved> {
 protected:
  SaveFaults() {
    AddButtonPage(u"menu", {u"ok", u"quit"});
    AddText(u"bag.txt", u"name menu.glb");
    AddText(u"style.txt", u"texture a.png");
    AddText(u"gui.txt", u"lang words.txt tool style.txt");
    gui->Load(u"gui.txt", nullptr);
    gui->AddPage(u"menu.txt", &engine.camera);
    gui->AddBagPage(u"bag.txt", &engine.camera);
  }

  // Saves one of two contents. Whether it was saved, as far as the caller is told.
  std::optional<bool> Save(bool second) {
    switch (GetParam()) {
      case Saved::Page:
        gui->GetPage(0)->items.at(0)->info->tooltip = second ? 2 : 1;
        return gui->SavePage(u"pages\\saved.txt", 0);
      case Saved::Bag:
        gui->GetPage(1)->name = second ? u"second.glb" : u"first.glb";
        return gui->SavePage(u"pages\\saved.txt", 1);
      case Saved::Style:
        gui->GetStyleColor() = second ? 2 : 1;
        gui->SaveStyle();
        return std::nullopt;
      case Saved::Language:
        gui->SaveLanguage(base::ToUtf16((folder / (second ? "second.txt" : "first.txt")).string()));
        return std::nullopt;
    }
    return std::nullopt;
  }

  // Where it is saved.
  [[nodiscard]] fs::path File() const {
    if (GetParam() == Saved::Style) return folder / "style.txt";
    return GetParam() == Saved::Language ? folder / "words.txt" : folder / "pages" / "saved.txt";
  }
  [[nodiscard]] fs::path Backup() const { return File().parent_path() / "bak" / (File().filename().string() + "0"); }

  // Takes away what was saved, and saves the first content.
  void BeginAnew() {
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry);
    std::ofstream(folder / "first.txt") << std::string(100000, '1');
    std::ofstream(folder / "second.txt") << std::string(100000, '2');
    engine.errors.clear();
    Save(false);
    fs::remove_all(Backup().parent_path());
  }

  void LearnContents() {
    BeginAnew();
    first_ = BytesOf(File());
    Save(true);
    second_ = BytesOf(File());
    ASSERT_FALSE(first_.empty());
    ASSERT_NE(first_, second_);
    ASSERT_EQ(BytesOf(Backup()), first_);
  }

  // The calls of a save, and how many of them are before the file itself is written.
  void CountCalls() {
    BeginAnew();
    std::size_t copies = 0;
    const base::CallTap tap([&](const base::Call& call) {
      const bool writes = call.name == "SaveWholeFile" || (call.name == "CopyFileW" && ++copies == 2);
      if (writes) callsOfBackup_ = CountedFileCalls();
      if (writes) StrikeFileCall(0, Fault::Fail);
    });
    StrikeFileCall(0, Fault::Fail);
    Save(true);
    calls_ = callsOfBackup_ + CountedFileCalls();
    ASSERT_GT(callsOfBackup_, 5U) << "the calls are those of the libraries";
    ASSERT_GT(calls_, callsOfBackup_ + 4U);
  }

  [[nodiscard]] std::vector<std::string> Leftovers() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      const std::string name = entry.path().filename();
      if (name.find(".part") != std::string::npos) names.push_back(name);
    }
    return names;
  }

  // Runs it in a process of its own. The exit status, -1 for one that was killed.
  static int RunApart(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string first_;
  std::string second_;
  std::size_t callsOfBackup_ = 0;
  std::size_t calls_ = 0;
};

TEST_P(SaveFaults, ACallThatFailsLosesNothing) {
  LearnContents();
  CountCalls();
  for (std::size_t call = 1; call <= calls_; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + " of " + std::to_string(calls_));
    BeginAnew();
    fs::permissions(File(), fs::perms::owner_read | fs::perms::owner_write);
    StrikeFileCall(call, Fault::Fail);
    const std::optional<bool> saved = Save(true);
    CountedFileCalls();
    const std::string now = BytesOf(File());
    EXPECT_TRUE(now == first_ || now == second_);
    EXPECT_EQ(saved.value_or(now == second_), now == second_) << "the caller is told";
    const bool tells = GetParam() == Saved::Page && now == first_;
    EXPECT_EQ(engine.errors.size(), tells ? 1U : 0U);
    EXPECT_TRUE(call <= callsOfBackup_ || BytesOf(Backup()) == first_) << "what there was can be found";
    EXPECT_THAT(Leftovers(), ::testing::IsEmpty());
  }
}

TEST_P(SaveFaults, AFileInAFolderThatMayNotBeWrittenIsWrittenInPlace) {
  LearnContents();
  std::size_t calls = 0;
  for (std::size_t call = 0; call <= calls; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + " of " + std::to_string(calls));
    BeginAnew();
    RefuseNewFiles(true);
    StrikeFileCall(call, Fault::Fail);
    const std::optional<bool> saved = Save(true);
    if (call == 0) calls = CountedFileCalls();
    RefuseNewFiles(false);
    const std::string now = BytesOf(File());
    EXPECT_TRUE(now == second_ || (call > 0 && now == first_));
    EXPECT_EQ(saved.value_or(now == second_), now == second_);
    EXPECT_FALSE(fs::exists(Backup().parent_path()));
  }
}

TEST_P(SaveFaults, AProcessKilledAtAnyCallLosesNothing) {
  LearnContents();
  CountCalls();
  for (std::size_t call = 1; call <= calls_; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + " of " + std::to_string(calls_));
    BeginAnew();
    const int status = RunApart([&] {
      StrikeFileCall(call, Fault::Kill);
      Save(true);
    });
    EXPECT_EQ(status, kKilled);
    const std::string now = BytesOf(File());
    EXPECT_TRUE(now == first_ || (now == second_ && BytesOf(Backup()) == first_));
    Save(true);
    EXPECT_TRUE(BytesOf(File()) == second_) << "what is left lying about is in nobody's way";
  }
}

constexpr std::array<const char*, 4> kNames{"Page", "Bag", "Style", "Language"};

INSTANTIATE_TEST_SUITE_P(Every, SaveFaults, ::testing::Values(Saved::Page, Saved::Bag, Saved::Style, Saved::Language),
                         [](const auto& tested) { return kNames.at(static_cast<std::size_t>(tested.param)); });

}  // namespace
}  // namespace qen::test
