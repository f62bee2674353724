// Where definitions are written to, their backups, and what cannot be saved.
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "tests/module/data_folder.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

class Saving : public SavingTest {
 protected:
  Saving() {
    AddButtonPage(u"menu", {u"ok"});
    OpenPage(u"menu.txt");
  }

  void Write(const fs::path& file, const std::string& text) const {
    fs::create_directories((folder / file).parent_path());
    std::ofstream(folder / file) << text;
  }

  [[nodiscard]] bool IsPage(const fs::path& file) const { return BytesOf(folder / file).starts_with("\xFF\xFEn"); }

  // One line that names the path is written, and nothing else is changed.
  void ExpectRefused(const String& name, const String& path) {
    engine.errors.clear();
    EXPECT_FALSE(gui->SavePage(name.c_str(), 0)) << Narrow(name);
    ASSERT_EQ(engine.errors.size(), 1U) << Narrow(name);
    EXPECT_EQ(Narrow(engine.errors[0]), "Can't save file " + Narrow(path));
  }

  [[nodiscard]] String InFolder(StringView name) const { return System::GetBasePath() + String(name); }
};

TEST_F(Saving, NumbersBackupsByTheFirstFreeNumber) {
  const fs::path backups = folder / "bak";
  for (int i = 0; i < 4; ++i) {
    gui->GetPage(0)->items[0]->info->tooltip = i;
    ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  }
  EXPECT_TRUE(fs::exists(backups / "menu.txt2"));
  EXPECT_FALSE(fs::exists(backups / "menu.txt3"));
  EXPECT_NE(BytesOf(backups / "menu.txt1"), BytesOf(backups / "menu.txt2"));
  fs::remove(backups / "menu.txt1");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(fs::exists(backups / "menu.txt1"));
  EXPECT_FALSE(fs::exists(backups / "menu.txt3"));
}

TEST_F(Saving, MakesTheFoldersOnTheWay) {
  ASSERT_TRUE(gui->SavePage(u"data\\pages/Menü 雪.txt", 0));
  EXPECT_TRUE(IsPage("data/pages/Menü 雪.txt"));
  EXPECT_TRUE(FilesIn(folder / "data/pages/bak").empty()) << "there was nothing to keep";
  ASSERT_TRUE(gui->SavePage(u"DATA\\Pages\\MENÜ 雪.TXT", 0)) << "the same names in other letters";
  EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"data"});
  EXPECT_EQ(FilesIn(folder / "data/pages"), (std::vector<std::string>{"Menü 雪.txt", "bak"}));
  EXPECT_EQ(FilesIn(folder / "data/pages/bak"), std::vector<std::string>{"MENÜ 雪.TXT0"});
}

TEST_F(Saving, TakesANameWithADriveAsItIs) {
  const fs::path before = fs::current_path();
  fs::create_directories(folder / "work" / "c:");
  fs::current_path(folder / "work");
  EXPECT_TRUE(gui->SavePage(u"c:\\pages\\menu.txt", 0));
  EXPECT_TRUE(IsPage("work/c:/pages/menu.txt"));
  EXPECT_TRUE(fs::exists("c:/pages/bak"));
  ExpectRefused(u"d:\\menu.txt", u"d:\\menu.txt");
  ExpectRefused(u"d:/pages/menu.txt", u"d:/pages/menu.txt");
  EXPECT_EQ(FilesIn("."), std::vector<std::string>{"c:"}) << "drives are not made";
  fs::current_path(before);
  EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"work"});
}

TEST_F(Saving, RefusesWhatIsNoFileName) {
  Write("lang/words.txt", "words");
  fs::create_directories(folder / "taken.txt");
  fs::create_symlink(folder / "nowhere" / "x", folder / "dangling");
  ExpectRefused(u"", System::GetBasePath());
  ExpectRefused(u"pages\\", InFolder(u"pages\\"));
  ExpectRefused(u"lang/", InFolder(u"lang/"));
  ExpectRefused(u"taken.txt", InFolder(u"taken.txt"));
  ExpectRefused(u"lang/words.txt/menu.txt", InFolder(u"lang/words.txt/menu.txt"));
  ExpectRefused(u"dangling", InFolder(u"dangling"));
  const String endless(300, u'x');
  ExpectRefused(endless, InFolder(endless));
  String deep;
  for (int i = 0; i < 50; ++i) deep += String(200, u'y') + u'/';
  ExpectRefused(deep + u"menu.txt", InFolder(deep + u"menu.txt"));
  EXPECT_FALSE(gui->SavePage(nullptr, 0));
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "words");
  EXPECT_TRUE(fs::is_directory(folder / "taken.txt"));
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << entry.path();
  }
}

TEST_F(Saving, SavesNothingForAPageThatIsNone) {
  EXPECT_FALSE(gui->SavePage(u"menu.txt", 1));
  EXPECT_FALSE(gui->SavePage(u"menu.txt", 0xFFFFFFFF));
  EXPECT_TRUE(FilesIn(folder).empty());
  EXPECT_TRUE(engine.errors.empty());
}

TEST_F(Saving, LeavesAReadOnlyFileAlone) {
  Write("menu.txt", "mine");
  fs::permissions(folder / "menu.txt", fs::perms::owner_read | fs::perms::others_read);
  ExpectRefused(u"menu.txt", InFolder(u"menu.txt"));
  EXPECT_EQ(BytesOf(folder / "menu.txt"), "mine");
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "menu.txt"}));
}

TEST_F(Saving, KeepsPermissionsOwnerAndLinks) {
  Write("real/menu.txt", "mine");
  const fs::perms wanted = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
  fs::permissions(folder / "real/menu.txt", wanted);
  constexpr uid_t kSomeone = 12345;
  const bool mayGiveAway = ::chown((folder / "real/menu.txt").c_str(), kSomeone, kSomeone) == 0;
  fs::create_symlink("real/menu.txt", folder / "menu.txt");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(fs::is_symlink(folder / "menu.txt"));
  EXPECT_TRUE(IsPage("real/menu.txt"));
  EXPECT_EQ(fs::status(folder / "real/menu.txt").permissions(), wanted);
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt0"), "mine");
  EXPECT_EQ(fs::status(folder / "bak/menu.txt0").permissions(), wanted) << "nobody can read more than before";
  struct stat saved {};
  ASSERT_EQ(::stat((folder / "real/menu.txt").c_str(), &saved), 0);
  EXPECT_TRUE(!mayGiveAway || saved.st_uid == kSomeone);
}

TEST_F(Saving, WritesThroughALinkToAFileThatIsNotThereYet) {
  fs::create_directories(folder / "real");
  fs::create_symlink("real/menu.txt", folder / "menu.txt");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(fs::is_symlink(folder / "menu.txt"));
  EXPECT_TRUE(IsPage("real/menu.txt"));
}

TEST_F(Saving, LeavesFilesThatLookLikeItsOwnAlone) {
  Write("menu.txt.part0", "someone's");
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(IsPage("menu.txt"));
  EXPECT_EQ(BytesOf(folder / "menu.txt.part0"), "someone's");
  EXPECT_EQ(FilesIn(folder).size(), 3U);
}

// As someone whom permissions stop.
TEST_F(Saving, LosesNothingWhereItMayNotWrite) {
  Write("closed/menu.txt", "mine");
  Write("open/menu.txt", "mine");
  fs::permissions(folder / "open", fs::perms::all);
  fs::permissions(folder / "closed/menu.txt", fs::perms::all);
  const pid_t child = fork();
  if (child == 0) {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0) _exit(1);
    const bool saved = gui->SavePage(u"closed/menu.txt", 0) || gui->SavePage(u"open/menu.txt", 0);
    _exit(saved ? 2 : 0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  if (geteuid() != 0) GTEST_SKIP() << "the files are our own";
  EXPECT_EQ(status, 0);
  EXPECT_EQ(BytesOf(folder / "closed/menu.txt"), "mine");
  EXPECT_EQ(BytesOf(folder / "open/menu.txt"), "mine");
  EXPECT_EQ(FilesIn(folder / "closed"), std::vector<std::string>{"menu.txt"});
  EXPECT_EQ(BytesOf(folder / "open/bak/menu.txt0"), "mine");
}

// Files cannot grow over some bytes, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : before_(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit full{bytes, limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    signal(SIGXFSZ, before_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit limit_{};
  void (*before_)(int);
};

TEST_F(Saving, LosesNothingWhenTheDiskIsFull) {
  Write("menu.txt", "mine");
  for (const rlim_t bytes : {rlim_t{0}, rlim_t{1}, rlim_t{4}, rlim_t{100}}) {
    const FullDisk disk(bytes);
    ExpectRefused(u"menu.txt", InFolder(u"menu.txt"));
  }
  EXPECT_EQ(BytesOf(folder / "menu.txt"), "mine");
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "menu.txt"}));
  EXPECT_EQ(FilesIn(folder / "bak"), (std::vector<std::string>{"menu.txt0", "menu.txt1"})) << "those that found room";
}

TEST_F(Saving, TellsNobodyThatABagOrStyleWasNotSaved) {
  AddText(u"bag.txt", u"name menu.glb");
  AddText(u"style.txt", u"color_normal 1");
  gui->AddBagPage(u"bag.txt", &engine.camera);
  gui->LoadStyle(u"style.txt");
  fs::create_directories(folder / "style.txt");
  engine.errors.clear();
  EXPECT_FALSE(gui->SavePage(u"style.txt", 1));
  gui->SaveStyle();
  EXPECT_TRUE(engine.errors.empty());
  EXPECT_TRUE(fs::is_directory(folder / "style.txt"));
}

TEST_F(Saving, ReplacesTheLanguageFileByAnother) {
  Write("lang/words.txt", "old words");
  Write("new.txt", "new words");
  AddText(u"gui.txt", u"lang lang\\words.txt");
  AddText(u"lang/words.txt", u"lang english { str1 \"Read\" }");
  const String source = base::ToUtf16((folder / "new.txt").string());
  gui->SaveLanguage(source);
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "lang", "new.txt"})) << "no language file, no copy";
  gui->Load(u"gui.txt", nullptr);
  gui->SaveLanguage(u"no such file");
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "old words");
  gui->SaveLanguage(source);
  EXPECT_EQ(BytesOf(folder / "lang/words.txt"), "new words");
  EXPECT_EQ(BytesOf(folder / "lang/bak/words.txt1"), "old words");
  EXPECT_EQ(gui->GetText(1), u"Read") << "the words in use stay";
}

}  // namespace
}  // namespace qen::test
