// A small GUI with a widget of every kind, on an engine without devices: what the inputs play with.
#pragma once

#include <memory>
#include <vector>

#include "fuzz/target.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/gui_fixture.h"

namespace qen::fuzz {

inline constexpr StringView kEverything = u"lang texts.txt tool style.txt name page.txt name other.txt bagname bag.txt";

inline constexpr StringView kDescriptionFile = u"gui.txt";
inline constexpr StringView kLanguageFile = u"texts.txt";
inline constexpr StringView kPageFile = u"page.txt";  // of page.glb, every kind of widget but quads
inline constexpr StringView kOtherPageFile = u"other.txt";
inline constexpr StringView kBagFile = u"bag.txt";
inline constexpr StringView kStyleFile = u"style.txt";
inline constexpr StringView kSavedFile = u"saved.txt";

// What the GUI saves goes to a folder of the program's own.
class Stage : public test::GuiTest {
 public:
  Stage();
  ~Stage() override { GiveBack(); }

  using GuiTest::CallNames;
  using GuiTest::Deliver;
  using GuiTest::engine;
  using GuiTest::Frame;
  using GuiTest::gui;
  using GuiTest::Hover;
  using GuiTest::listener;
  using GuiTest::MoveTo;
  using GuiTest::Press;
  using GuiTest::ReleaseButton;
  using GuiTest::Send;
  using GuiTest::ShowOnly;

  void AddFiles(StringView description);  // all there are, of which the description may name some
  void SetFile(StringView file, Input content) { engine.files.Add(file, {content.begin(), content.end()}); }
  void Load();  // the description, and shows its first page
  void Draw();  // with the tooltip
  void Click(ICGUIObject& widget);
  void FillBags(std::size_t entries);

  [[nodiscard]] std::vector<ICGUIObject*> Widgets() const;  // of all pages

  // What was saved as `kSavedFile` can be read by the engine from then on.
  void MakeSavedReadable();

  void GiveBack();       // a new GUI, with nothing loaded, for stages that see more than one input
  void ForgetRecords();  // that the devices keep

 private:
  void TestBody() override {}

  std::vector<std::unique_ptr<test::Entry>> entries_;
  bool saved_ = false;
};

// One that many inputs play with, each leaving it as it was. It is made anew now and then, since an engine remembers
// which names it did not find.
template <class Kind>
Kind& Kept() {
  constexpr int kInputs = 1000;
  static Kind* kept = nullptr;  // never destroyed at the end: what it stands on may be gone by then
  static int inputs = 0;
  if (inputs++ % kInputs == 0) {
    delete kept;
    kept = nullptr;
    kept = new Kind;
  }
  return *kept;
}

}  // namespace qen::fuzz
