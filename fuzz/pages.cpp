// Page definitions and the whole module: the page is used, written, read back and drawn.
#include "definitions/page_writer.h"
#include "fuzz/stage.h"

namespace qen::fuzz {
namespace {

constexpr std::size_t kWidgets = 8;  // that are clicked, of one page

struct PagesStage : Stage {
  PagesStage() { AddFiles(u"lang texts.txt tool style.txt name page.txt"); }
};

void UseWidgets(Stage& stage) {
  for (std::size_t i = 0; i < kWidgets; ++i) {
    // Asked anew: a click may change what is there.
    const std::vector<ICGUIObject*> widgets = stage.gui->GetPageItems(0);
    if (i >= widgets.size()) break;
    stage.Hover(*widgets[i]);
    stage.Press();
    stage.Frame();
    stage.ReleaseButton();
    stage.Frame();
    stage.Send(message::kKey, u'x');
    stage.Send(message::kWheel, 120);
  }
  stage.Frame(1.5);  // long enough for a tooltip
  stage.Frame();
  stage.Draw();
}

}  // namespace

void Try(Input input) {
  auto& stage = Kept<PagesStage>();
  stage.SetFile(kPageFile, input);
  stage.Load();
  stage.ShowOnly(0);
  UseWidgets(stage);
  // In memory, since disks are slow.
  stage.engine.files.AddText(kSavedFile, WritePage(*stage.gui->GetPage(0), {}));
  stage.gui->AddPage(kSavedFile.data(), &stage.engine.camera);
  stage.gui->SetViewport(&stage.engine.viewport);
  stage.ShowOnly(1);
  stage.Frame();
  stage.Draw();
  stage.GiveBack();
}

}  // namespace qen::fuzz
