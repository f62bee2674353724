#include "engine/platform.h"

#include <gtest/gtest.h>

#include "base/utf.h"
#include "tests/temporary_folder.h"

namespace qen::platform {
namespace {

TEST(Platform, CopiesMakesAndOpensWhatIsInAFolder) {
  const TemporaryFolder folder;
  folder.Write("a.txt", "new");
  folder.Write("b.txt", "old and longer");
  const auto in = [&folder](StringView name) { return base::ToUtf16(folder.Path().string()) + u'/' + String(name); };
  const auto copy = [&in](StringView from, StringView to, bool failIfExists = false) {
    return CopyFileW(in(from).c_str(), in(to).c_str(), failIfExists);
  };
  EXPECT_FALSE(copy(u"a.txt", u"b.txt", true));
  EXPECT_FALSE(copy(u"none.txt", u"b.txt"));
  EXPECT_FALSE(copy(u"a.txt", u"nowhere/b.txt"));
  EXPECT_FALSE(CopyFileW(nullptr, nullptr, false));
  EXPECT_EQ(folder.Read("b.txt"), "old and longer") << "a copy that fails leaves what was there";
  EXPECT_TRUE(copy(u"a.txt", u"b.txt"));
  EXPECT_EQ(folder.Read("b.txt"), "new");

  EXPECT_EQ(_wmkdir(in(u"Men\u00FCs\\").c_str()), 0);
  EXPECT_EQ(_wmkdir(in(u"Men\u00FCs").c_str()), -1) << "exists";
  EXPECT_EQ(_wmkdir(in(u"a\\b").c_str()), -1) << "one folder at a time";
  EXPECT_EQ(_wmkdir(u"Q:\\"), -1) << "a drive";
  EXPECT_EQ(_wfopen(in(u"none.txt").c_str(), u"rb"), nullptr);
  EXPECT_EQ(_wfopen(in(u"Men\u00FCs").c_str(), u"rb"), nullptr) << "a folder";
  EXPECT_EQ(_wfopen(nullptr, u"rb"), nullptr);
  for (const auto& [name, mode] : {std::pair(u"men\u00DCS\\Main.txt", u"wb"), {u"MEN\u00DCS/MAIN.TXT", u"ab"}}) {
    std::FILE* file = _wfopen(in(name).c_str(), mode);
    ASSERT_NE(file, nullptr) << "what exists in another letter case is meant";
    std::fputs("text", file);
    std::fclose(file);
  }
  EXPECT_EQ(folder.Read(u8"Men\u00FCs/Main.txt"), "texttext");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 3) << "nothing is left lying about";
}

}  // namespace
}  // namespace qen::platform
