#include "tests/faults/sample_tour.h"

#include "tests/module/bag_fixture.h"

namespace qen::test {
namespace {

// Rests on each widget of the page, turns the wheel over it and types; clicks what does not lead away.
void UseWidgets(SampleGui& sample, std::uint32_t page) {
  for (ICGUIObject* widget : sample.gui->GetPageItems(page)) {
    sample.Hover(*widget);
    sample.Send(message::kWheel, 120);
    const bool leadsAway = widget->info->type == widget_type::kButton;
    if (!leadsAway) sample.ClickHere();
    sample.Send(message::kKey, u'x');
  }
}

void Click(SampleGui& sample, StringView page, StringView widget) {
  ICGUIObject* found = sample.Find(page, widget);
  if (found == nullptr) return;
  sample.Hover(*found);
  sample.ClickHere();
  sample.Settle();
}

void TurnTheBag(SampleGui& sample) {
  static Entry entry(0x8040FF);
  const std::int32_t page = sample.gui->FindPage(u"inventory.glb");
  ICGUIPageObject* bag = sample.gui->GetPage(static_cast<std::uint32_t>(page));
  if (bag == nullptr) return;
  bag->SetBagItems({&entry, nullptr, &entry});
  sample.gui->FocusNext();
  sample.Frame();
  sample.gui->FocusPrev();
  sample.Draw();
  bag->SetBagItems({});
}

std::string List(const std::vector<std::uint32_t>& pages) {
  std::string list;
  for (const std::uint32_t page : pages) list += ' ' + std::to_string(page);
  return list;
}

void SaveAll(SampleGui& sample) {
  IGui& gui = *sample.gui;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) gui.SavePage(gui.GetPageFile(page).c_str(), page);
  gui.SaveStyle();
  gui.SaveLanguage(u"texts.txt");
}

}  // namespace

void PlayTour(SampleGui& sample) {
  IGui& gui = *sample.gui;
  for (std::uint32_t page = 0; page < gui.GetPageCount(); ++page) {
    sample.Show(page);
    UseWidgets(sample, page);
    gui.FocusNext();
    gui.FocusPrev();
    sample.Draw();
  }
  sample.Show(0);
  Click(sample, u"main_menu", u"~boptions");
  Click(sample, u"options", u"~bback");
  Click(sample, u"main_menu", u"~bquit");
  Click(sample, u"quit_dialog", u"~bno");
  Click(sample, u"main_menu", u"~binventory");
  TurnTheBag(sample);
  Click(sample, u"inventory_frame", u"~bback");
  for (const String& language : gui.GetLanguages()) gui.SetLanguage(language);
  SaveAll(sample);
}

std::vector<std::string> Describe(SampleGui& sample) {
  IGui& gui = *sample.gui;
  for (int i = 0; i < 2; ++i) sample.MoveTo({-1000, -1000});  // the call that fails may be among these
  std::vector<std::string> lines{std::to_string(gui.GetTexts().size()) + " texts"};
  for (std::uint32_t i = 0; i < gui.GetPageCount(); ++i) {
    const ICGUIPageObject& page = *gui.GetPage(i);
    const bool settled = sample.Show(i);
    sample.Draw();
    lines.push_back(Narrow(page.baseName) + ": " + std::to_string(page.items.size()) + " widgets " +
                    std::to_string(page.anims.size()) + " animations " +
                    std::to_string(sample.engine.render.frame.items.size()) + " drawn" +
                    (settled ? " settled" : " restless") + ", active" + List(gui.GetActivePages()) + ", drawn" +
                    List(gui.GetRenderPages()));
  }
  return lines;
}

}  // namespace qen::test
