#include "host/app/file_watch.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/temporary_folder.h"

namespace qen::host {
namespace {

// Whether the watch reports a change within the time that it may take.
bool NoticesSoon(FileWatch& watch) {
  for (int i = 0; i < 40; ++i) {
    if (watch.HasChanged()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return false;
}

TEST(FileWatchTest, NoticesWhatMattersOnce) {
  TemporaryFolder folder;
  folder.Write("pages/menu.txt", "one");
  FileWatch watch({folder.Path()});
  folder.Write("pages/bak/menu.txt0", "a backup");
  folder.Write("pages/menu.txt.part0", "being written");
  EXPECT_FALSE(NoticesSoon(watch));
  folder.Write("pages/menu.txt", "two!");
  EXPECT_TRUE(NoticesSoon(watch));
  EXPECT_FALSE(NoticesSoon(watch)) << "told once";
  folder.Write("scenes/new.glb", "");
  EXPECT_TRUE(NoticesSoon(watch)) << "a file that is new";
}

}  // namespace
}  // namespace qen::host
