#include "host/app/options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <tuple>
#include <utility>

namespace qen::host {
namespace {

constexpr std::pair kTestSize{640, 480};

constexpr const char* kFooter =
    "In the window, F1 shows the keys. Ctrl+S saves the active page over its own definition and keeps the old\n"
    "one in the folder bak beside it.\n"
    "Without a display, or with --offscreen and nothing else to do, the tour is played into ./shots.";

[[noreturn]] void Refuse(const std::string& reason) { throw std::runtime_error(reason + " (see guihost --help)"); }

bool ParseSide(std::string_view text, std::int32_t& side) {
  const char* end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, side);
  return problem == std::errc{} && stop == end && side >= 1 && side <= kMaxSide;
}

// "1280x960"
bool ParseSize(std::string_view text, Options& options) {
  const std::size_t cross = text.find('x');
  return cross != std::string_view::npos && ParseSide(text.substr(0, cross), options.width) &&
         ParseSide(text.substr(cross + 1), options.height);
}

std::string DescriptionBeside(const std::string& folder) {
  namespace fs = std::filesystem;
  const fs::path whole = fs::path(folder).lexically_normal();
  const fs::path parent = whole.has_filename() ? whole.parent_path() : whole.parent_path().parent_path();
  return (parent / "gui.txt").string();
}

// "menu=folder/menu.txt"
bool ParsePageSave(const std::string& text, Options& options) {
  const std::size_t sign = text.find('=');
  if (sign == std::string::npos || sign == 0 || sign + 1 == text.size()) return false;
  options.savedPages.push_back({text.substr(0, sign), text.substr(sign + 1)});
  return true;
}

FindingFormat ParseFormat(const std::string& name) {
  constexpr std::pair<const char*, FindingFormat> kFormats[] = {
      {"text", FindingFormat::Text}, {"json", FindingFormat::Json}, {"sarif", FindingFormat::Sarif}};
  for (const auto& [known, format] : kFormats) {
    if (name == known) return format;
  }
  throw CLI::ValidationError("--format", name + " is not text, json or sarif");
}

void DeclareCheck(CLI::App& app, Options& options) {
  CheckOptions& check = options.check;
  CLI::App* command = app.add_subcommand("check", "Looks for mistakes in a GUI's files (docs/checks.md)");
  command->add_option("GUI_DESCRIPTION", options.description, "The file that names the GUI's pages, texts and style")
      ->required();
  command
      ->add_option_function<std::string>(
          "--format", [&check](const std::string& name) { check.format = ParseFormat(name); },
          "How findings are printed; text without it")
      ->type_name("text|json|sarif");
  command->add_flag("--strict", check.strict, "Warnings, too, end with status 1");
  command->add_flag("--fix", check.fix, "Mends what is certain, and keeps what was there in the folder bak");
  command->add_option("--language", check.languages, "Whose words are looked at; all without it; may be given again")
      ->type_name("NAME")
      ->allow_extra_args(false);
  command->add_option("--rule", check.rules, "How severe a rule is: off, note, warning or error; may be given again")
      ->type_name("ID=LEVEL")
      ->allow_extra_args(false);
  command->fallthrough();
  command->callback([&check] { check.isWanted = true; });
}

void Declare(CLI::App& app, Options& options) {
  app.add_option("GUI_DESCRIPTION", options.description, "The file that names the GUI's pages, texts and style");
  app.add_option("--page", options.page, "The page to show first; the description's first page without it")
      ->type_name("NAME");
  app.add_option_function<std::string>(
         "--size",
         [&options](const std::string& text) {
           if (!ParseSize(text, options)) throw CLI::ValidationError("--size", text + " is no size such as 1280x960");
         },
         "The size of the window or picture in pixels, 1280x960 without it")
      ->type_name("WxH");
  app.add_flag("--offscreen", options.offscreen, "Opens no window; needs no display");
  app.add_option_function<std::vector<std::string>>(
         "--save-page",
         [&options](const std::vector<std::string>& texts) {
           for (const std::string& text : texts) {
             if (!ParsePageSave(text, options)) throw CLI::ValidationError("--save-page", text + " is no NAME=FILE");
           }
         },
         "Saves the page's definition after the first frame, off screen, and ends; may be given again")
      ->type_name("NAME=FILE")
      ->allow_extra_args(false);
  app.add_option("--shot", options.shot, "Writes a picture of the page when its entrance is over, and ends")
      ->type_name("FILE.png");
  app.add_option("--tour", options.tour, "Goes through the pages off screen and writes pictures into the folder")
      ->type_name("FOLDER");
  app.add_option("--trace", options.trace, "Writes every call into the engine, one JSON object a line")
      ->type_name("FILE");
  app.add_option("--game", options.game, "The script that plays the game's part; game.lua in the data without it")
      ->type_name("FILE");
  app.add_option("--script", options.script, "Runs a script that drives the GUI (docs/scripting.md), and ends")
      ->type_name("FILE");
  app.add_option("--timeout", options.timeout, "A script that runs longer than so many seconds fails, 60 without it")
      ->type_name("SECONDS")
      ->check(CLI::PositiveNumber);
  app.add_flag("--realtime", options.realtime, "A script's frames take as long as they last");
  app.add_flag("--update", options.update, "Scripts replace golden pictures instead of comparing with them");
  app.add_option("--language", options.language,
                 "The language of the texts, english without it; pseudo: with accents, and longer")
      ->type_name("NAME");
  app.add_option("--data", options.data,
                 "Files are looked for there too; may be given again, later ones come before earlier ones")
      ->type_name("FOLDER_OR_ZIP")
      ->allow_extra_args(false);
  app.add_option("--module", options.module, "The GUI module, found beside the program without it")->type_name("FILE");
  app.add_flag("--fps", options.fps, "Shows frame times on screen");
  app.add_flag("--watch", options.watch, "Loads the GUI anew when its files change on the disk");
  app.add_option("--frames", options.frames, "Ends after so many frames")->type_name("N");
  CLI::App* test = app.add_subcommand("test", "Runs every script of a folder as a test, each with a GUI of its own");
  test->add_option("FOLDER", options.testFolder, "Where the scripts are")->required();
  test->add_option("GUI_DESCRIPTION", options.description, "gui.txt beside the folder without it");
  test->add_flag("--strict", options.strict, "Fails, too, when `guihost check --strict` would");
  test->fallthrough();
  DeclareCheck(app, options);
  app.set_help_flag("--help", "Prints this help and ends");
  app.set_version_flag("--version", "guihost " GUIHOST_VERSION, "Prints the version and ends");
  app.footer(kFooter);
}

}  // namespace

std::optional<Options> ParseOptions(int argc, const char* const* argv) {
  Options options;
  CLI::App app("Shows and runs a GUI on a small engine of its own.", "guihost");
  Declare(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& request) {
    app.exit(request);
    return std::nullopt;
  } catch (const CLI::ParseError& problem) {
    Refuse(problem.what());
  }
  if (!options.testFolder.empty()) {
    if (app.count("--size") == 0) std::tie(options.width, options.height) = kTestSize;
    if (options.description.empty()) options.description = DescriptionBeside(options.testFolder);
  }
  // Not left to the parser, which would miss it before it names an option that does not exist.
  if (options.description.empty() && options.script.empty()) Refuse("no GUI description given");
  return options;
}

}  // namespace qen::host
