#include "host/app/stage.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include "base/utf.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/output.h"
#include "engine/system.h"
#include "host/app/page_report.h"
#include "host/app/pages.h"
#include "host/app/picture_file.h"

namespace qen::host {
namespace {

constexpr double kStep = 1.0 / 60.0;
constexpr int kLongestWait = 600;  // steps
constexpr int kQuietSteps = 3;     // commands that waited for an animation are carried out in the step after its end

WindowOptions ToWindowOptions(const Options& options, const StageOptions& stageOptions) {
  return {.title = std::filesystem::path(options.description).filename().string(),
          .width = options.width,
          .height = options.height,
          .offscreen = stageOptions.offscreen,
          .vsync = !stageOptions.manualClock};
}

void WarnInLog(StringView line) { System::output->PrintError(u"%s\n", String(line).c_str()); }

void PrintLine(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);  // whoever reads it through a pipe sees it now
}

}  // namespace

Stage::Stage(const Options& options, const StageOptions& stageOptions)
    : data_(MountGameData(options.description, options.data, files_)),
      window_(ToWindowOptions(options, stageOptions)),
      renderer_({.toWindow = !stageOptions.offscreen, .onError = {}}),
      fonts_(renderer_.GlyphPages()),
      ime_(window_),
      sounds_(MixerSounds::Open(stageOptions.offscreen ? SoundOutput::None : SoundOutput::Device)),
      scenes_(files_, WarnInLog),
      engine_({.window = &window_,
               .render = &renderer_,
               .fonts = &fonts_,
               .scenes = &scenes_,
               .sound = sounds_.get(),
               .files = &files_,
               .ime = &ime_,
               .clock = stageOptions.manualClock ? &clock_ : nullptr}),
      game_(PrintLine),
      viewport_(&camera_),
      module_(options.module.empty() ? DefaultModuleFile() : options.module) {
  Resize();
  Load(options);
  if (options.fps) frameTimes_.emplace();
}

void Stage::Load(const Options& options) {
  System::SetBasePath(base::ToUtf16(data_.folder.string() + '/'));
  if (!Gui().Load(data_.description.c_str(), &camera_)) {
    throw std::runtime_error("cannot read " + options.description);
  }
  ReportIncompletePages(Gui(), [](const std::string& line) { WarnInLog(base::ToUtf16(line)); });
  Gui().SetViewport(&viewport_);
  Send(message::kMouseMove);  // the GUI asks where the cursor is
  if (!options.language.empty()) ChooseLanguage(base::ToUtf16(options.language));
  ShowFirstPage(base::ToUtf16(options.page));
}

void Stage::ChooseLanguage(StringView name) const {
  std::string known;
  for (const String& language : Gui().GetLanguages()) {
    if (language == name) return Gui().SetLanguage(language);
    known += (known.empty() ? "" : ", ") + base::ToUtf8(language);
  }
  throw std::runtime_error("there is no language " + base::ToUtf8(name) + ", only: " + known);
}

void Stage::ShowFirstPage(StringView name) const {
  if (Gui().GetPageCount() == 0) throw std::runtime_error(base::ToUtf8(data_.description) + " names no pages");
  Gui().SetPage(name.empty() ? 0 : PageByName(Gui(), name));
}

void Stage::Send(std::uint32_t id, std::uint32_t first, std::uintptr_t second) {
  System::daemon->ProcMsg(id, first, second, category::kGui);
}

void Stage::MoveCursor(base::Point client) {
  const base::Point origin = window_.ClientOrigin();
  window_.SetCursor({origin.x + client.x, origin.y + client.y});
  Send(message::kMouseMove);
}

void Stage::Resize() {
  const base::Point size = window_.ClientSize();
  viewport_.Resize(static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y));
}

void Stage::Update(double seconds) {
  clock_.Advance(seconds);
  engine_.Animate();
  Send(message::kFrame);
  Send(message::kDeliverQueue);
}

void Stage::Draw() {
  engine_.BeginFrame();
  Send(message::kRender, 0, reinterpret_cast<std::uintptr_t>(&viewport_));
  Gui().DrawTooltip(&viewport_);
  if (frameTimes_) frameTimes_->Draw();
  engine_.EndFrame(viewport_);
}

void Stage::Settle() {
  int quiet = 0;
  for (int step = 0; step < kLongestWait && quiet < kQuietSteps; ++step) {
    Update(kStep);
    quiet = FindPlayingAnim(Gui()) == nullptr ? quiet + 1 : 0;
  }
}

void Stage::WritePicture(const std::filesystem::path& file) const {
  base::Image image;
  renderer_.Read(image);
  host::WritePicture(image, file);
}

}  // namespace qen::host
