#include "host/app/program.h"

#include <SDL.h>

#include <optional>

#include "host/app/display.h"
#include "host/app/options.h"
#include "host/app/stage.h"
#include "host/app/tour.h"
#include "host/app/trace_file.h"
#include "host/app/window_loop.h"

namespace qen::host {
namespace {

constexpr const char* kTourFolder = "shots";

void Play(const Options& options) {
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

void Run(int argc, const char* const* argv) {
  const std::optional<Options> options = ParseOptions(argc, argv);
  if (!options) return;
  // Interrupting ends the program at once, also where nothing takes events.
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  std::optional<TraceFile> trace;
  if (!options->trace.empty()) trace.emplace(options->trace);
  Play(*options);
  if (trace) trace->Finish();
}

}  // namespace qen::host
