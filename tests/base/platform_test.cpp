#include "engine/platform.h"

#include <gtest/gtest.h>

#include "base/utf.h"
#include "tests/temporary_folder.h"

namespace qen::platform {
namespace {

class PlatformTest : public testing::Test {
 protected:
  [[nodiscard]] String Path(const Char* name) const { return base::ToUtf16(folder.Path().string()) + u'/' + name; }

  TemporaryFolder folder;
};

TEST_F(PlatformTest, CopiesWholeFiles) {
  folder.Write("a.txt", "new");
  folder.Write("b.txt", "old and longer");
  EXPECT_FALSE(CopyFileW(Path(u"a.txt").c_str(), Path(u"b.txt").c_str(), true));
  EXPECT_EQ(folder.Read("b.txt"), "old and longer");
  EXPECT_TRUE(CopyFileW(Path(u"a.txt").c_str(), Path(u"b.txt").c_str(), false));
  EXPECT_EQ(folder.Read("b.txt"), "new");
  EXPECT_FALSE(CopyFileW(Path(u"none.txt").c_str(), Path(u"b.txt").c_str(), false));
  EXPECT_EQ(folder.Read("b.txt"), "new") << "a copy that fails leaves what was there";
  EXPECT_FALSE(CopyFileW(Path(u"a.txt").c_str(), Path(u"nowhere/b.txt").c_str(), false));
  EXPECT_FALSE(CopyFileW(nullptr, nullptr, false));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2) << "nothing is left lying about";
}

TEST_F(PlatformTest, MakesFoldersAndOpensFiles) {
  EXPECT_EQ(_wmkdir(Path(u"Men\u00FCs\\").c_str()), 0);
  EXPECT_EQ(_wmkdir(Path(u"Men\u00FCs").c_str()), -1) << "exists";
  EXPECT_EQ(_wmkdir(Path(u"a\\b").c_str()), -1) << "one folder at a time";
  EXPECT_EQ(_wfopen(Path(u"none.txt").c_str(), u"rb"), nullptr);
  EXPECT_EQ(_wfopen(Path(u"Men\u00FCs").c_str(), u"rb"), nullptr) << "a folder";
  EXPECT_EQ(_wfopen(nullptr, u"rb"), nullptr);
  std::FILE* file = _wfopen(Path(u"men\u00DCS\\Main.txt").c_str(), u"wb");
  ASSERT_NE(file, nullptr) << "folders that exist in another letter case are those";
  std::fputs("text", file);
  std::fclose(file);
  EXPECT_EQ(folder.Read(u8"Men\u00FCs/Main.txt"), "text");
  file = _wfopen(Path(u"MEN\u00DCS/MAIN.TXT").c_str(), u"rb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
}

}  // namespace
}  // namespace qen::platform
