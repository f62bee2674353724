// Saving where there are no drives, but permissions, owners, links and limits.
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/module/saving_fixture.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

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

}  // namespace
}  // namespace qen::test
