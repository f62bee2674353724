// The engine on its real backends, with the GUI module running in it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "base/engine.h"
#include "engine/camera.h"
#include "engine/gui.h"
#include "engine/viewport.h"
#include "host/app/frame_times.h"
#include "host/app/game.h"
#include "host/app/game_data.h"
#include "host/app/module_library.h"
#include "host/app/options.h"
#include "host/app/screen_text.h"
#include "host/app/unseen_pages.h"
#include "host/check/gui_check.h"
#include "host/check/pseudo_language_files.h"
#include "host/files/physfs_files.h"
#include "host/fonts/freetype_fonts.h"
#include "host/render/gl_renderer.h"
#include "host/scenes/gltf_scenes.h"
#include "host/sounds/mixer_sounds.h"
#include "host/window/sdl_ime.h"
#include "host/window/sdl_window.h"

namespace qen::host {

struct StageOptions {
  bool offscreen = false;      // no window and nothing heard
  bool manualClock = false;    // time passes by Update alone
  bool quiet = false;          // only failures are printed
  bool showsProblems = false;  // of files, on the screen too
};

// When it is made, everything that the options name is loaded and the first page asked for. Throws std::runtime_error,
// with one line, when that is not possible.
class Stage {
 public:
  static constexpr double kStep = 1.0 / 60.0;  // seconds a frame where nothing else sets the pace

  Stage(const Options& options, const StageOptions& stageOptions);
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  [[nodiscard]] IGui& Gui() const { return module_.Gui(); }
  [[nodiscard]] SdlWindow& Window() { return window_; }
  [[nodiscard]] const Camera& GetCamera() const { return camera_; }
  [[nodiscard]] bool HasQuit() const { return game_.HasQuit(); }
  [[nodiscard]] Game& GetGame() { return game_; }

  // The game's script as it came with the data; nothing when there is none.
  [[nodiscard]] std::optional<FoundScript> FindGameScript() { return host::FindGameScript(data_, files_); }

  [[nodiscard]] bool IsOffscreen() const { return offscreen_; }
  [[nodiscard]] bool IsDrawingTooltip() const { return drawsTooltip_; }

  [[nodiscard]] const GameData& Data() const { return data_; }

  [[nodiscard]] std::vector<std::filesystem::path> DataPlaces() const { return files_.Places(); }

  // Throws std::runtime_error, with one line, when a page is empty, since its file or its scene could not be loaded.
  void RequireAllPages();

  // Tells what is wrong with the files, loads everything anew and shows again what was shown. When something cannot be
  // loaded, all stays as it is, with a line on screen that says why, and std::runtime_error is thrown with that line.
  void Reload();

  // The lines on screen about files; shown where there is a window.
  void HideProblems() { notice_.clear(); }

  void ShowKeys(StringView keys);  // a text of lines over the GUI; empty for none
  [[nodiscard]] bool ShowsKeys() const { return !keys_.empty(); }

  // Hears of every line of the log as well; null for nobody.
  void SetLogListener(std::function<void(StringView line)> listener) { logListener_ = std::move(listener); }

  // Is called when everything is about to be loaded anew, while the old GUI is still there; null for nobody.
  void SetReloadListener(std::function<void()> listener) { reloadListener_ = std::move(listener); }

  // Loads a description of the data, on top of what is loaded. Its result is IGui::Load's.
  bool LoadDescription(const String& file);

  // Sends a message to the GUI.
  void Send(std::uint32_t id, std::uint32_t first = 0, std::uintptr_t second = 0);

  // These deliver the commands that follow, which the next frame would drop when they are notifications. Wheel and step
  // keys have the codes of characters, so neither is sent while a text is being edited.
  void SendWheel(std::int32_t amount);  // positive towards the user, 120 a notch
  void SendKey(Char code);              // a key of the keyboard: backspace, enter, up, down
  void SendText(StringView text);       // what was typed

  // Puts the cursor on a point of the client area and tells the GUI.
  void MoveCursor(base::Point client);

  void Resize();                // to the window's size
  void Update(double seconds);  // one frame up to its picture; the seconds are for the manual clock
  void Deliver();               // the commands that wait
  void Draw();                  // the picture
  bool Show();                  // in the window; false when it is the one that is there, and nothing needs to be done
  void ShowAgain();             // when the window has lost it
  void DrawHidden();            // all of it but the picture, which WritePicture makes up for

  // Updates until no page is animated and nothing waits, for 10 seconds of the manual clock at most.
  void Settle();

  void WritePicture(const std::filesystem::path& file);  // of what was drawn last

 private:
  void Load(const Options& options);
  void SendInput(std::uint32_t id, std::uint32_t value);
  analysis::Report CheckData();
  void TellProblems(const analysis::Report& report);
  [[noreturn]] void RefuseToLoad(const std::string& fault);
  void OnLog(StringView line, bool error) const;
  void ChooseLanguage(StringView name) const;
  void ShowFirstPage(StringView name) const;
  void PlaceTextField();
  void DrawPages();
  void DrawScreenText();
  void NamePage();

  bool offscreen_;
  bool quiet_;
  bool showsProblems_;
  bool hidden_ = false;  // what was drawn last
  bool drawsTooltip_ = false;
  std::function<void(StringView)> logListener_;
  std::function<void()> reloadListener_;
  PhysfsFiles files_;
  GameData data_;
  std::unique_ptr<PseudoLanguageFiles> pseudo_;  // null without that language
  SdlWindow window_;
  GlRenderer renderer_;
  FreetypeFonts fonts_;
  SdlIme ime_;
  std::unique_ptr<MixerSounds> sounds_;
  GltfScenes scenes_;
  base::ManualClock clock_;
  base::Engine engine_;
  Game game_;
  Camera camera_;
  Viewport viewport_;
  GuiCheck check_;
  ModuleLibrary module_;
  UnseenPages unseenPages_;
  std::string title_;  // of the window
  FrameTimes frameTimes_;
  bool showsFrameTimes_;
  std::vector<String> keys_;
  std::vector<String> notice_;
  std::optional<ScreenText> screenText_;  // made when there is something to say
};

}  // namespace qen::host
