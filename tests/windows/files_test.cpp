// Saving on a file system with drives, read-only and locked files, and long names.
#include "engine/platform.h"
#include "tests/module/saving_fixture.h"
#include "tests/windows/imports.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

class WindowsFiles : public Saving {
 protected:
  [[nodiscard]] static bool Has(const std::wstring& file) {
    return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  void ExpectUntouched(const char* file) {
    ExpectRefused(base::ToUtf16(file), InFolder(base::ToUtf16(file)));
    EXPECT_EQ(BytesOf(folder / file), "mine");
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << entry.path();
    }
  }
};

TEST_F(WindowsFiles, TakesANameWithADriveAsItIs) {
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

// The C++ library, which removes the other files of these tests, cannot.
void RemoveLong(const String& file) {
  const std::size_t end = file.rfind(u'\\');
  const String backups = file.substr(0, end) + u"\\bak";
  for (const Char* number : {u"0", u"1"})
    DeleteFileW(platform::FileName((backups + file.substr(end) + number).c_str()).c_str());
  DeleteFileW(platform::FileName(file.c_str()).c_str());
  RemoveDirectoryW(platform::FileName(backups.c_str()).c_str());
  for (std::size_t slash = end; slash != String::npos; slash = file.rfind(u'\\', slash - 1)) {
    if (RemoveDirectoryW(platform::FileName(file.substr(0, slash).c_str()).c_str()) == 0) return;
  }
}

TEST_F(WindowsFiles, SavesUnderLongNames) {
  String name;
  for (int i = 0; i < 6; ++i) name += String(80, static_cast<Char>(u'a' + i)) + u'\\';
  name += u"men\u00FC.txt";
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(gui->SavePage(name.c_str(), 0)) << i;
  const String whole = InFolder(name);
  ASSERT_GT(whole.size(), static_cast<std::size_t>(MAX_PATH));
  EXPECT_TRUE(Has(platform::FileName(whole.c_str())));
  const String backup = whole.substr(0, whole.rfind(u'\\')) + u"\\bak\\men\u00FC.txt1";
  EXPECT_TRUE(Has(platform::FileName(backup.c_str())));
  RemoveLong(whole);
}

TEST_F(WindowsFiles, RefusesReadOnlyFilesAndFolders) {
  Write("menu.txt", "mine");
  SetFileAttributesW((folder / "menu.txt").c_str(), FILE_ATTRIBUTE_READONLY);
  ExpectUntouched("menu.txt");
  EXPECT_EQ(BytesOf(folder / "bak/menu.txt0"), "mine");
  for (const char* file : {"menu.txt", "bak/menu.txt0"})
    SetFileAttributesW((folder / file).c_str(), FILE_ATTRIBUTE_NORMAL);
  fs::create_directories(folder / "taken.txt");
  ExpectRefused(u"taken.txt", InFolder(u"taken.txt"));
  ExpectRefused(u"pages\\", InFolder(u"pages\\"));
  ExpectRefused(u"", System::GetBasePath());
}

TEST_F(WindowsFiles, RefusesAFileThatAnotherProgramHolds) {
  Write("menu.txt", "mine");
  for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
    const HANDLE held =
        CreateFileW((folder / "menu.txt").c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    ExpectRefused(u"menu.txt", InFolder(u"menu.txt"));
    CloseHandle(held);
    EXPECT_EQ(BytesOf(folder / "menu.txt"), "mine") << shared;
    EXPECT_FALSE(Has((folder / "menu.txt.part0").wstring())) << shared;
  }
  EXPECT_TRUE(gui->SavePage(u"menu.txt", 0)) << "free again";
}

TEST_F(WindowsFiles, KeepsAHiddenFileHidden) {
  Write("menu.txt", "mine");
  SetFileAttributesW((folder / "menu.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
  ASSERT_TRUE(gui->SavePage(u"menu.txt", 0));
  EXPECT_TRUE(IsPage("menu.txt"));
  EXPECT_NE(GetFileAttributesW((folder / "menu.txt").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

}  // namespace
}  // namespace qen::test
