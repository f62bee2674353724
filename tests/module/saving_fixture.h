// Pages that are saved to a folder.
#pragma once

#include "tests/module/data_folder.h"

namespace qen::test {

class Saving : public SavingTest {
 protected:
  Saving() {
    AddButtonPage(u"menu", {u"ok"});
    OpenPage(u"menu.txt");
  }

  void Write(const std::filesystem::path& file, const std::string& text) const { data.Write(file, text); }

  [[nodiscard]] bool IsPage(const std::filesystem::path& file) const {
    return BytesOf(folder / file).starts_with("\xFF\xFEn");
  }

  // One line that names the path is written, and nothing else is changed.
  void ExpectRefused(const String& name, const String& path) {
    engine.errors.clear();
    EXPECT_FALSE(gui->SavePage(name.c_str(), 0)) << Narrow(name);
    ASSERT_EQ(engine.errors.size(), 1U) << Narrow(name);
    EXPECT_EQ(Narrow(engine.errors[0]), "Can't save file " + Narrow(path));
  }

  [[nodiscard]] String InFolder(StringView name) const { return System::GetBasePath() + String(name); }
};

}  // namespace qen::test
