// A small GUI with a widget of every kind, on an engine without devices: what the inputs play with.
#pragma once

#include <memory>
#include <vector>

#include "fuzz/target.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/data_folder.h"
#include "tests/module/gui_fixture.h"

namespace qen::fuzz {

inline constexpr StringView kDescriptionFile = u"gui.txt";
inline constexpr StringView kLanguageFile = u"texts.txt";
inline constexpr StringView kPageFile = u"page.txt";  // of page.glb, every kind of widget but quads
inline constexpr StringView kOtherPageFile = u"other.txt";
inline constexpr StringView kBagFile = u"bag.txt";
inline constexpr StringView kStyleFile = u"style.txt";
inline constexpr StringView kSavedFile = u"saved.txt";

// Fresh for each input, but for the library itself: loading that anew would be slow and hide the coverage. What the
// GUI saves goes to a folder of its own.
class Stage : public test::GuiTest {
 public:
  Stage();
  ~Stage() override;

  using GuiTest::Deliver;
  using GuiTest::engine;
  using GuiTest::Frame;
  using GuiTest::gui;
  using GuiTest::Hover;
  using GuiTest::listener;
  using GuiTest::MoveTo;
  using GuiTest::Send;

  void Load();  // the description, and shows its first page
  void Draw();  // with the tooltip
  void Click(ICGUIObject& widget);
  void FillBags(std::size_t entries);

  [[nodiscard]] std::vector<ICGUIObject*> Widgets() const;  // of all pages

  // What was saved as `kSavedFile` can be read by the engine from then on.
  void MakeSavedReadable();

 private:
  void TestBody() override {}

  void AddFiles();

  test::DataFolder data_;
  std::vector<std::unique_ptr<test::Entry>> entries_;
};

}  // namespace qen::fuzz
