// The root of all definitions: it is the only file there is, so that its pages come to nothing.
#include "fuzz/stage.h"

namespace qen::fuzz {

void Try(Input input) {
  auto& stage = Kept<Stage>();
  stage.SetFile(kDescriptionFile, input);
  stage.Load();
  stage.GiveBack();
}

}  // namespace qen::fuzz
