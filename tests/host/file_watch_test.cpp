#include "host/files/file_watch.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "host/files/file_watch_polling.h"
#include "tests/temporary_folder.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kQuiet = 100ms;

using MakeWatch = std::unique_ptr<FileWatch> (*)(std::vector<fs::path> places, std::chrono::milliseconds quietTime);

std::unique_ptr<FileWatch> PollFiles(std::vector<fs::path> places, std::chrono::milliseconds quietTime) {
  return std::make_unique<PollingWatch>(std::move(places), quietTime);
}

bool Notices(FileWatch& watch, std::chrono::milliseconds within) {
  const auto end = std::chrono::steady_clock::now() + within;
  while (!watch.HasChanged()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(10ms);
  }
  return true;
}

bool NoticesSoon(FileWatch& watch) { return Notices(watch, 5s); }
bool NoticesNothing(FileWatch& watch) { return !Notices(watch, 6 * kQuiet); }

class FileWatchTest : public ::testing::TestWithParam<MakeWatch> {
 protected:
  TemporaryFolder folder;
  fs::path data = folder.Path() / "data";
};

INSTANTIATE_TEST_SUITE_P(, FileWatchTest, ::testing::Values(WatchFiles, PollFiles),
                         [](const auto& made) { return made.param == &WatchFiles ? "BySystem" : "ByPolling"; });

TEST_P(FileWatchTest, NoticesWhatMattersOnce) {
  folder.Write("data/pages/menu.txt", "one");
  const auto watch = GetParam()({data}, kQuiet);
  folder.Write("data/pages/bak/menu.txt0", "a backup");
  folder.Write("data/pages/menu.txt.part0", "being written");
  folder.Write("beside.txt", "");
  EXPECT_TRUE(NoticesNothing(*watch));
  folder.Write("data/pages/menu.txt", "two!");
  EXPECT_TRUE(NoticesSoon(*watch));
  EXPECT_TRUE(NoticesNothing(*watch)) << "told once";
}

TEST_P(FileWatchTest, FollowsWhatComesAndMoves) {
  folder.Write("data/a.txt", "one");
  folder.Write("elsewhere/deep/b.txt", "one");
  const auto watch = GetParam()({data}, kQuiet);
  folder.Write("data/new/deep/c.txt", "");
  EXPECT_TRUE(NoticesSoon(*watch)) << "new folders";
  folder.Write("data/new/deep/c.txt", "two");
  EXPECT_TRUE(NoticesSoon(*watch)) << "a file in a new folder";
  fs::rename(data / "a.txt", data / "z.txt");
  EXPECT_TRUE(NoticesSoon(*watch)) << "renamed";
  fs::rename(folder.Path() / "elsewhere", data / "moved");
  EXPECT_TRUE(NoticesSoon(*watch)) << "moved in";
  fs::rename(data / "moved/deep", data / "deep");
  EXPECT_TRUE(NoticesSoon(*watch)) << "moved within";
  folder.Write("data/deep/b.txt", "two");
  EXPECT_TRUE(NoticesSoon(*watch)) << "a file in a moved folder";
  fs::rename(data / "deep", folder.Path() / "gone");
  EXPECT_TRUE(NoticesSoon(*watch)) << "moved out";
  folder.Write("gone/b.txt", "three");
  EXPECT_TRUE(NoticesNothing(*watch)) << "it is nobody's now";
  fs::rename(data, folder.Path() / "old");
  EXPECT_TRUE(NoticesSoon(*watch)) << "the place itself";
  folder.Write("data/a.txt", "new");
  EXPECT_TRUE(NoticesSoon(*watch)) << "another in its place";
}

TEST_P(FileWatchTest, LooksAfterFilesToo) {
  folder.Write("game.zip", "one");
  folder.Write("far/real.zip", "one");
  fs::create_symlink("far/real.zip", folder.Path() / "link.zip");
  const auto watch = GetParam()({folder.Path() / "game.zip", folder.Path() / "link.zip"}, kQuiet);
  folder.Write("other.zip", "one");
  folder.Write("new.zip", "another");
  EXPECT_TRUE(NoticesNothing(*watch));
  fs::rename(folder.Path() / "new.zip", folder.Path() / "game.zip");
  EXPECT_TRUE(NoticesSoon(*watch)) << "replaced";
  folder.Write("far/real.zip", "three");
  EXPECT_TRUE(NoticesSoon(*watch)) << "behind the link";
}

TEST(FileWatchBySystemTest, SurvivesMoreThanCanBeTold) {
  TemporaryFolder folder;
  folder.Write("a.txt", "");
  const auto watch = WatchFiles({folder.Path()}, kQuiet);
  for (int i = 0; i < 10000; ++i) {
    fs::rename(folder.Path() / "a.txt", folder.Path() / "b.txt");
    fs::rename(folder.Path() / "b.txt", folder.Path() / "a.txt");
  }
  folder.Write("new/c.txt", "");
  EXPECT_TRUE(NoticesSoon(*watch));
  folder.Write("new/c.txt", "two");
  EXPECT_TRUE(NoticesSoon(*watch)) << "in a folder that nothing told of";
}

}  // namespace
}  // namespace qen::host
