#include "host/app/program.h"

#include <SDL.h>

#include <cstdio>
#include <exception>
#include <optional>
#include <string_view>

#include "base/utf.h"
#include "host/app/display.h"
#include "host/app/options.h"
#include "host/app/page_saver.h"
#include "host/app/pages.h"
#include "host/app/stage.h"
#include "host/app/test_run.h"
#include "host/app/tour.h"
#include "host/app/trace_file.h"
#include "host/app/window_loop.h"
#include "host/check/check_command.h"
#include "host/files/file_watch.h"
#include "host/script/script.h"

namespace qen::host {
namespace {

constexpr const char* kTourFolder = "shots";

void SavePages(Stage& stage, const std::vector<PageSave>& saves) {
  stage.Update(Stage::kStep);
  for (const PageSave& save : saves) {
    const std::uint32_t page = PageNamed(stage.Gui(), base::ToUtf16(save.page));
    std::puts(SavePageAs(stage.Gui(), page, save.file).c_str());
  }
}

// Without a display it is not seen, but does all the same.
void PlayScript(const Options& options) {
  Stage stage(options, {.offscreen = options.offscreen || !HasDisplay(), .manualClock = !options.realtime});
  Script script(stage, {.realtime = options.realtime,
                        .renewPictures = options.update,
                        .game = options.game,
                        .timeout = options.timeout});
  script.Run(options.script);
  stage.RequireAllPages();
}

void Play(const Options& options) {
  if (!options.script.empty()) return PlayScript(options);
  const bool wantsTour = !options.tour.empty();
  const bool savesPages = !options.savedPages.empty();
  const bool offscreen = options.offscreen || wantsTour || savesPages || !HasDisplay();
  const bool playsTour = wantsTour || (offscreen && options.shot.empty() && !options.frames && !savesPages);
  const bool takesTime = !offscreen && options.shot.empty();
  Stage stage(options, {.offscreen = offscreen, .manualClock = !takesTime, .showsProblems = takesTime});
  Script game(stage, {.game = options.game, .timeout = options.timeout, .listens = false});
  if (savesPages) SavePages(stage, options.savedPages);
  if (playsTour) {
    PlayTour(stage, wantsTour ? options.tour : kTourFolder);
  } else if (!options.shot.empty()) {
    stage.Settle();
    stage.Draw();
    stage.WritePicture(options.shot);
  } else if (!savesPages || options.frames) {
    const auto watch = options.watch ? WatchFiles(stage.DataPlaces()) : nullptr;
    RunWindowLoop(stage, game, options.frames, watch.get());
  }
  if (playsTour || !options.shot.empty()) stage.RequireAllPages();
}

int CheckFiles(const Options& options) {
  PhysfsFiles files;
  const GameData data = MountGameData(options.description, options.data, files);
  GuiCheck check(data.description, GameScriptName(data), files);
  return RunCheckCommand(options.check, check, files);
}

int RunOptions(const Options& options) {
  if (options.check.isWanted) return CheckFiles(options);
  // Interrupting ends the program at once, also where nothing takes events.
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  std::optional<TraceFile> trace;
  if (!options.trace.empty()) trace.emplace(options.trace);
  bool passed = true;
  if (options.testFolder.empty()) {
    Play(options);
  } else {
    passed = RunScriptTests(options);
  }
  if (trace) trace->Finish();
  return passed ? 0 : 1;
}

}  // namespace

int Run(int argc, const char* const* argv) {
  constexpr int kFailed = 1;
  constexpr int kNotChecked = 2;
  const bool checks = argc > 1 && argv[1] == std::string_view("check");
  try {
    const std::optional<Options> options = ParseOptions(argc, argv);
    return options ? RunOptions(*options) : 0;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "guihost: %s\n", problem.what());
    return checks ? kNotChecked : kFailed;
  }
}

}  // namespace qen::host
