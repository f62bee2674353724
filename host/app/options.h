// What the command line asks for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/check/check_options.h"

namespace qen::host {

struct PageSave {
  std::string page;
  std::string file;
};

inline constexpr std::int32_t kMaxSide = 16384;  // of a window or picture, in pixels

// Paths and names are UTF-8; empty where nothing was asked for.
struct Options {
  std::string description;
  std::string page;
  std::int32_t width = 1280;
  std::int32_t height = 960;
  bool offscreen = false;
  std::vector<PageSave> savedPages;
  std::string shot;
  std::string tour;
  std::string trace;
  std::string language;
  std::vector<std::string> data;
  std::string module;
  std::string game;
  std::string script;
  std::string testFolder;  // not empty: its scripts are run as tests, and nothing else is done
  double timeout = 60.0;   // seconds a script
  CheckOptions check;
  bool strict = false;  // tests fail for what a check finds, too
  bool realtime = false;
  bool update = false;
  bool fps = false;
  bool watch = false;
  std::optional<std::uint32_t> frames;
};

// Nothing when help or version were asked for, which are printed. Throws std::runtime_error, with one line that names
// the option, when something is wrong.
std::optional<Options> ParseOptions(int argc, const char* const* argv);

}  // namespace qen::host
