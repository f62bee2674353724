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

class FileWatchTest : public ::testing::TestWithParam<MakeWatch> {};

INSTANTIATE_TEST_SUITE_P(, FileWatchTest, ::testing::Values(WatchFiles, PollFiles),
                         [](const auto& made) { return made.param == &WatchFiles ? "BySystem" : "ByPolling"; });

struct Change {
  const char* what;
  const char* from;  // renamed from there; nullptr: written
  const char* file;
  bool isTold = true;
};

TEST_P(FileWatchTest, TellsOnceOfEachChangeThatMatters) {
  const TemporaryFolder folder;
  for (const char* file : {"data/menu.txt", "elsewhere/deep/b.txt", "game.zip", "far/real.zip"}) folder.Write(file, "");
  fs::create_symlink("far/real.zip", folder.Path() / "link.zip");
  const auto watch =
      GetParam()({folder.Path() / "data", folder.Path() / "game.zip", folder.Path() / "link.zip"}, kQuiet);
  constexpr Change kChanges[] = {{"a backup", nullptr, "data/bak/menu.txt0", false},
                                 {"being written", nullptr, "data/menu.txt.part0", false},
                                 {"beside the places", nullptr, "new.zip", false},
                                 {"written", nullptr, "data/menu.txt"},
                                 {"in new folders", nullptr, "data/new/deep/c.txt"},
                                 {"written in a new folder", nullptr, "data/new/deep/c.txt"},
                                 {"renamed", "data/menu.txt", "data/z.txt"},
                                 {"moved in", "elsewhere", "data/moved"},
                                 {"moved within", "data/moved/deep", "data/deep"},
                                 {"in a moved folder", nullptr, "data/deep/b.txt"},
                                 {"moved out", "data/deep", "gone"},
                                 {"it is nobody's now", nullptr, "gone/b.txt", false},
                                 {"an archive replaced", "new.zip", "game.zip"},
                                 {"behind the link", nullptr, "far/real.zip"},
                                 {"the place itself", "data", "old"},
                                 {"another in its place", nullptr, "data/a.txt"}};
  for (const Change& change : kChanges) {
    if (change.from == nullptr) {
      folder.Write(change.file, change.what);
    } else {
      fs::rename(folder.Path() / change.from, folder.Path() / change.file);
    }
    EXPECT_EQ(Notices(*watch, change.isTold ? 5s : 6 * kQuiet), change.isTold) << change.what;
  }
  EXPECT_FALSE(Notices(*watch, 6 * kQuiet)) << "told once";
}

TEST(FileWatchBySystemTest, SurvivesMoreThanCanBeTold) {
  const TemporaryFolder folder;
  folder.Write("a.txt", "");
  const auto watch = WatchFiles({folder.Path()}, kQuiet);
  for (int i = 0; i < 10000; ++i) {
    fs::rename(folder.Path() / "a.txt", folder.Path() / "b.txt");
    fs::rename(folder.Path() / "b.txt", folder.Path() / "a.txt");
  }
  folder.Write("new/c.txt", "");
  EXPECT_TRUE(Notices(*watch, 5s));
  folder.Write("new/c.txt", "two");
  EXPECT_TRUE(Notices(*watch, 5s)) << "in a folder that nothing told of";
}

}  // namespace
}  // namespace qen::host
