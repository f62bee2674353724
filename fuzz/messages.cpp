// Sequences of messages and calls, as a host sends them and as none should.
#include "fuzz/steps.h"

namespace qen::fuzz {

// All is made anew, but for the library: there is nothing that steps cannot change.
void Try(Input input) {
  Stage stage;
  stage.AddFiles(kEverything);
  stage.Load();
  stage.Frame(1.0);  // the entrance is over
  Play play(stage, input);
  play.TakeSteps();
  stage.Frame();
  stage.Draw();
}

}  // namespace qen::fuzz
