#include "host/app/program.h"

#include <SDL.h>

#include <optional>

#include "host/app/display.h"
#include "host/app/options.h"
#include "host/app/stage.h"
#include "host/app/test_run.h"
#include "host/app/tour.h"
#include "host/app/trace_file.h"
#include "host/app/window_loop.h"
#include "host/script/script.h"

namespace qen::host {
namespace {

constexpr const char* kTourFolder = "shots";

// Without a display it is not seen, but does all the same.
void PlayScript(const Options& options) {
  Stage stage(options, {.offscreen = options.offscreen || !HasDisplay(), .manualClock = !options.realtime});
  Script(stage, {.realtime = options.realtime, .renewPictures = options.update}).Run(options.script);
}

void Play(const Options& options) {
  if (!options.script.empty()) return PlayScript(options);
  const bool wantsTour = !options.tour.empty();
  const bool offscreen = options.offscreen || wantsTour || !HasDisplay();
  const bool playsTour = wantsTour || (offscreen && options.shot.empty() && !options.frames);
  const bool takesTime = !offscreen && options.shot.empty();
  Stage stage(options, {.offscreen = offscreen, .manualClock = !takesTime});
  if (playsTour) {
    PlayTour(stage, wantsTour ? options.tour : kTourFolder);
  } else if (!options.shot.empty()) {
    stage.Settle();
    stage.Draw();
    stage.WritePicture(options.shot);
  } else {
    RunWindowLoop(stage, options.frames);
  }
}

}  // namespace

bool Run(int argc, const char* const* argv) {
  const std::optional<Options> options = ParseOptions(argc, argv);
  if (!options) return true;
  // Interrupting ends the program at once, also where nothing takes events.
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  std::optional<TraceFile> trace;
  if (!options->trace.empty()) trace.emplace(options->trace);
  bool passed = true;
  if (options->testFolder.empty()) {
    Play(*options);
  } else {
    passed = RunScriptTests(*options);
  }
  if (trace) trace->Finish();
  return passed;
}

}  // namespace qen::host
