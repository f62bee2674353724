#include "host/app/program.h"

#include <cstdlib>
#include <optional>

#include "host/app/options.h"
#include "host/app/stage.h"
#include "host/app/tour.h"
#include "host/app/trace_file.h"
#include "host/app/window_loop.h"

namespace qen::host {
namespace {

constexpr const char* kTourFolder = "shots";

// Only where displays are named by the environment can there be none.
bool HasDisplay() {
#if defined(__unix__) && !defined(__APPLE__)
  const auto isSet = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
#else
  return true;
#endif
}

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
  std::optional<TraceFile> trace;
  if (!options->trace.empty()) trace.emplace(options->trace);
  Play(*options);
  if (trace) trace->Finish();
}

}  // namespace qen::host
