// Saving on a file system with drives, read-only and locked files, and long names.
#include "engine/platform.h"
#include "tests/module/saving_fixture.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

TEST_F(Saving, TakesANameWithADriveAsItIs) {
  ASSERT_EQ(folder.wstring().substr(1, 1), L":") << "the folder for temporary files has a drive";
  const String name = base::ToUtf16(folder.string()) + u"\\other\\men\u00FC \u96EA.txt";
  System::SetBasePath(u"Q:\\nowhere\\");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(gui->SavePage(name.c_str(), 0)) << i;
  EXPECT_TRUE(IsPage(u8"other/men\u00FC \u96EA.txt"));
  EXPECT_EQ(FilesIn(folder / "other"), (std::vector<std::string>{"bak", "men\xC3\xBC \xE9\x9B\xAA.txt"}));
  EXPECT_EQ(FilesIn(folder / "other/bak").size(), 2U) << "the first had nothing to keep";
  ExpectRefused(u"menu.txt", u"Q:\\nowhere\\menu.txt");
  ExpectRefused(u"Q:\\menu.txt", u"Q:\\menu.txt");
}

TEST_F(Saving, TakesLongNames) {
  String name;
  for (int i = 0; i < 6; ++i) name += String(80, static_cast<Char>(u'a' + i)) + u'\\';
  const std::wstring place = platform::FileName(InFolder(name).c_str());
  ASSERT_GT(place.size(), std::size_t{MAX_PATH});
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(gui->SavePage((name + u"men\u00FC.txt").c_str(), 0)) << i;
  // The C++ library cannot remove these, as it does the other files of these tests.
  for (const std::wstring file : {L"bak\\men\u00FC.txt0", L"bak\\men\u00FC.txt1", L"men\u00FC.txt"}) {
    EXPECT_NE(DeleteFileW((place + file).c_str()), 0) << "the file and both backups were there";
  }
  EXPECT_NE(RemoveDirectoryW((place + L"bak").c_str()), 0) << "nothing else was";
  std::wstring left = place;
  for (int i = 0; i < 6; ++i) {
    EXPECT_NE(RemoveDirectoryW(left.c_str()), 0);
    left.resize(left.rfind(L'\\', left.size() - 2) + 1);
  }
}

// A file that is read-only, and one that another program has opened and shares in this way.
TEST_F(Saving, LeavesAFileAloneThatItMayNotReplace) {
  const fs::path file = folder / "menu.txt";
  Write("menu.txt", "mine");
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
  ExpectRefused(u"menu.txt", InFolder(u"menu.txt"));
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt0"), "mine");
  SetFileAttributesW((folder / "bak/menu.txt0").c_str(), FILE_ATTRIBUTE_NORMAL);
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
  for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
    const HANDLE held = CreateFileW(file.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    ExpectRefused(u"menu.txt", InFolder(u"menu.txt"));
    CloseHandle(held);
  }
  EXPECT_EQ(BytesOf(file), "mine");
  EXPECT_EQ(FilesIn(folder), (std::vector<std::string>{"bak", "menu.txt"})) << "nothing is left lying about";
  for (const String name : {u"bak", u"pages\\", u""}) ExpectRefused(name, InFolder(name));
  EXPECT_TRUE(gui->SavePage(u"menu.txt", 0)) << "free again";
}

}  // namespace
}  // namespace qen::test
