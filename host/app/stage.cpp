#include "host/app/stage.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include "base/utf.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/output.h"
#include "engine/string_converter.h"
#include "engine/system.h"
#include "host/app/data_check.h"
#include "host/app/gui_state.h"
#include "host/app/page_report.h"
#include "host/app/pages.h"
#include "host/app/picture_file.h"
#include "host/app/widget_place.h"

namespace qen::host {
namespace {

constexpr std::int32_t kLongestWait = 600;  // steps
constexpr Char kUpKey = 38;
constexpr Char kDownKey = 40;

WindowOptions ToWindowOptions(const Options& options, const StageOptions& stageOptions) {
  return {.title = std::filesystem::path(options.description).filename().string(),
          .width = options.width,
          .height = options.height,
          .offscreen = stageOptions.offscreen,
          .vsync = !stageOptions.manualClock};
}

void WarnInLog(StringView line) { System::output->PrintError(u"%s\n", String(line).c_str()); }

void WarnOf(const std::string& line) { WarnInLog(base::ToUtf16(line)); }

void PrintLine(std::FILE* to, const std::string& line) {
  std::fprintf(to, "%s\n", line.c_str());
  std::fflush(to);  // whoever reads it through a pipe sees it now
}

}  // namespace

Stage::Stage(const Options& options, const StageOptions& stageOptions)
    : offscreen_(stageOptions.offscreen),
      quiet_(stageOptions.quiet),
      data_(MountGameData(options.description, options.data, files_)),
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
      game_([this](const std::string& line) {
        if (!quiet_) PrintLine(stdout, line);
      }),
      viewport_(&camera_),
      module_(options.module.empty() ? DefaultModuleFile() : options.module) {
  engine_.SetLogSink([this](StringView line, bool error) { OnLog(line, error); });
  Resize();
  Load(options);
  if (options.fps) frameTimes_.emplace();
}

bool Stage::LoadDescription(const String& file) {
  const bool loaded = Gui().Load(file.c_str(), &camera_);
  ReportShortStyles(file, files_, WarnOf);
  ReportIncompletePages(Gui(), files_, WarnOf);
  if (emptyPage_.empty()) emptyPage_ = FindEmptyPage(Gui(), files_);
  Gui().SetViewport(&viewport_);
  Send(message::kMouseMove);  // the GUI asks where the cursor is
  return loaded;
}

void Stage::OnLog(StringView line, bool error) const {
  if (logListener_) logListener_(line);
  if (error || !quiet_) PrintLine(error ? stderr : stdout, base::ToUtf8(line));
}

void Stage::Load(const Options& options) {
  System::SetBasePath(base::ToUtf16(data_.folder.string() + '/'));
  if (options.description.empty()) return;
  LoadDescription(data_.description);  // it can be read; false says that a style is too short
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
  Gui().SetPage(name.empty() ? 0 : PageNamed(Gui(), name));
}

void Stage::Deliver() { Send(message::kDeliverQueue); }

void Stage::Send(std::uint32_t id, std::uint32_t first, std::uintptr_t second) {
  System::daemon->ProcMsg(id, first, second, category::kGui);
}

void Stage::SendInput(std::uint32_t id, std::uint32_t value) {
  Send(id, value);
  Deliver();
}

void Stage::SendWheel(std::int32_t amount) {
  if (FindEditedText(Gui()) == nullptr) SendInput(message::kWheel, static_cast<std::uint16_t>(amount));
}

void Stage::SendKey(Char code) {
  const bool steps = code == kUpKey || code == kDownKey;
  if (!steps || FindEditedText(Gui()) == nullptr) SendInput(message::kKey, code);
}

void Stage::SendText(StringView text) {
  for (const Char unit : text) SendInput(message::kKey, unit);
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
  // Input meets what was drawn last; a page that a delivery brings in is drawn where its entrance begins.
  Send(message::kFrame);
  Deliver();
  engine_.Animate();
  unseenPages_.Look(Gui(), WarnOf);
  PlaceTextField();
}

void Stage::PlaceTextField() {
  ICGUIText* edited = ime_.IsEnabled() ? FindEditedText(Gui()) : nullptr;
  const auto place = edited != nullptr ? FindRectangle(*edited, camera_, window_.ClientSize()) : std::nullopt;
  ime_.SetField(place.value_or(Rect{}));
}

void Stage::DrawPages() {
  engine_.BeginFrame();
  Send(message::kRender, 0, reinterpret_cast<std::uintptr_t>(&viewport_));
  drawsTooltip_ = true;
  Gui().DrawTooltip(&viewport_);
  drawsTooltip_ = false;
  DrawScreenText();
}

void Stage::DrawScreenText() {
  std::vector<String> lines = keys_;
  if (frameTimes_) lines.push_back(frameTimes_->NextFrame());
  lines.insert(lines.end(), notice_.begin(), notice_.end());
  if (lines.empty()) return;
  constexpr std::int32_t kTop = 8;
  if (!screenText_) screenText_.emplace();
  screenText_->Draw(lines, kTop);
}

void Stage::ShowKeys(StringView keys) { keys_ = keys.empty() ? std::vector<String>() : SplitString(keys, u"\n", 0); }

void Stage::RequireAllPages() const {
  if (!emptyPage_.empty()) throw std::runtime_error(emptyPage_);
}

std::string Stage::FaultOfData() {
  try {
    files_.OpenAnew();
  } catch (const std::runtime_error& problem) {
    return problem.what();
  }
  return FindFault(data_.description, files_, scenes_);
}

void Stage::Reload() {
  const std::string fault = FaultOfData();
  notice_.clear();
  if (!fault.empty()) {
    notice_.push_back(base::ToUtf16("not loaded: " + fault));
    throw std::runtime_error("not loaded: " + fault);
  }
  const GuiState state(Gui());
  if (reloadListener_) reloadListener_();
  Gui().Release();
  emptyPage_.clear();
  LoadDescription(data_.description);
  state.Restore(Gui());
}

void Stage::Draw() {
  DrawPages();
  engine_.EndFrame(viewport_);
  hidden_ = false;
}

void Stage::DrawHidden() {
  DrawPages();
  engine_.EndHiddenFrame();
  hidden_ = true;
}

void Stage::Settle() {
  host::Settle(Gui(), kLongestWait, [this] {
    const std::uint64_t before = game_.CommandCount();
    Update(kStep);
    return game_.CommandCount() > before;
  });
}

void Stage::WritePicture(const std::filesystem::path& file) {
  const base::Point size = window_.ClientSize();
  if (hidden_) renderer_.Draw(engine_.GetDrawList(), size.x, size.y);
  hidden_ = false;
  base::Image image;
  renderer_.Read(image);
  host::WritePicture(image, file);
}

}  // namespace qen::host
