#include "host/app/test_run.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "analysis/printers.h"
#include "host/app/stage.h"
#include "host/check/gui_check.h"
#include "host/script/script.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

std::vector<fs::path> FindScripts(const std::string& folder) {
  std::error_code problem;
  std::vector<fs::path> scripts;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, problem)) {
    if (entry.path().extension() == ".lua") scripts.push_back(entry.path());
  }
  if (problem) throw std::runtime_error("cannot read " + folder + ": " + problem.message());
  if (scripts.empty()) throw std::runtime_error(folder + " has no scripts");
  std::ranges::sort(scripts);
  return scripts;
}

// What the script failed with; empty when it did not.
std::string FailureOf(const fs::path& script, const Options& options) {
  try {
    Stage stage(options, {.offscreen = true, .manualClock = true, .quiet = true});
    const ScriptOptions scripts{.renewPictures = options.update, .game = options.game, .timeout = options.timeout};
    Script(stage, scripts).Run(script);
    stage.RequireAllPages();
    return {};
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

// The check is a test, too.
bool PassesCheck(const Options& options) {
  PhysfsFiles files;
  const GameData data = MountGameData(options.description, options.data, files);
  const analysis::Report report = GuiCheck(data.description, GameScriptName(data), files).RunForProblems();
  std::printf("%s the check of %s\n", report.findings.empty() ? "passed" : "FAILED", options.description.c_str());
  if (!report.findings.empty()) std::fputs(analysis::PrintText(report, false).c_str(), stdout);
  return report.findings.empty();
}

}  // namespace

bool RunScriptTests(const Options& options) {
  int passed = 0;
  int failed = options.strict && !PassesCheck(options) ? 1 : 0;
  for (const fs::path& script : FindScripts(options.testFolder)) {
    const Clock::time_point start = Clock::now();
    const std::string failure = FailureOf(script, options);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("%s %s (%.1f s)\n", failure.empty() ? "passed" : "FAILED", script.generic_string().c_str(), seconds);
    if (!failure.empty()) std::printf("       %s\n", failure.c_str());
    std::fflush(stdout);
    ++(failure.empty() ? passed : failed);
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0;
}

}  // namespace qen::host
