// Style files: the resources are made, and what would be saved is read again.
#include "definitions/page_writer.h"
#include "definitions/style_reader.h"
#include "fuzz/stage.h"

namespace qen::fuzz {

void Try(Input input) {
  auto& stage = Kept<Stage>();
  IGui& gui = *stage.gui;
  stage.SetFile(kStyleFile, input);
  gui.LoadStyle(kStyleFile.data());
  StyleSettings style{gui.GetStyleTexture(), gui.GetStyleColor(), gui.GetStyleFont()};
  ReadStyle(WriteStyle(style), style);
  stage.GiveBack();
}

}  // namespace qen::fuzz
