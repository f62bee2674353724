#include "host/app/stage.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include "analysis/printers.h"
#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/output.h"
#include "engine/scene.h"
#include "engine/string_converter.h"
#include "engine/system.h"
#include "host/app/gui_state.h"
#include "host/app/pages.h"
#include "host/app/picture_file.h"
#include "host/app/widget_place.h"
#include "host/render/gl_driver.h"

namespace qen::host {
namespace {

constexpr std::int32_t kLongestWait = 600;  // steps
constexpr Char kUpKey = 38;
constexpr Char kDownKey = 40;

// What a window is called before there are pages.
std::string ToTitle(const std::string& description) { return std::filesystem::path(description).filename().string(); }

WindowOptions ToWindowOptions(const Options& options, const StageOptions& stageOptions) {
  return {.title = ToTitle(options.description),
          .width = options.width,
          .height = options.height,
          .offscreen = stageOptions.offscreen,
          .vsync = !stageOptions.manualClock};
}

void WarnInLog(StringView line) { System::output->PrintError(u"%s\n", String(line).c_str()); }

void WarnOf(const std::string& line) { WarnInLog(base::ToUtf16(line)); }

// Some of the lines, for the screen.
std::vector<String> FirstLines(const analysis::Report& report) {
  constexpr std::size_t kMost = 8;
  std::vector<String> lines;
  for (const analysis::Finding& finding : report.findings) {
    if (lines.size() == kMost) break;
    lines.push_back(base::ToUtf16(analysis::PrintLine(finding)));
  }
  const std::size_t left = report.findings.size() - lines.size();
  if (left > 0) lines.push_back(base::ToUtf16("and " + std::to_string(left) + " more"));
  return lines;
}

bool HasScene(const ICGUIPageObject& page) {
  return page.scene != nullptr && (page.instance != nullptr || !page.scene->GetNodes().empty());
}

// Only where that language is asked for.
std::unique_ptr<PseudoLanguageFiles> PseudoFilesOf(StringView language, const String& description, PhysfsFiles& files) {
  if (language != analysis::kPseudoLanguage) return nullptr;
  return std::make_unique<PseudoLanguageFiles>(files, description);
}

void PrintTo(std::FILE* to, const std::string& line) {
  std::fprintf(to, "%s\n", line.c_str());
  std::fflush(to);  // whoever reads it through a pipe sees it now
}

}  // namespace

Stage::Stage(const Options& options, const StageOptions& stageOptions)
    : offscreen_(stageOptions.offscreen),
      quiet_(stageOptions.quiet),
      showsProblems_(stageOptions.showsProblems),
      data_(MountGameData(options.description, options.data, files_)),
      pseudo_(PseudoFilesOf(base::ToUtf16(options.language), data_.description, files_)),
      window_(ToWindowOptions(options, stageOptions)),
      renderer_({.coarseInMotion = !stageOptions.offscreen && IsSoftwareDriver(),
                 .toWindow = !stageOptions.offscreen,
                 .onError = {}}),
      fonts_(renderer_.GlyphPages()),
      ime_(window_),
      sounds_(MixerSounds::Open(stageOptions.offscreen ? SoundOutput::None : SoundOutput::Device)),
      scenes_(files_, WarnInLog),
      engine_({.window = &window_,
               .render = &renderer_,
               .fonts = &fonts_,
               .scenes = &scenes_,
               .sound = sounds_.get(),
               .files = pseudo_ ? static_cast<base::IFileBackend*>(pseudo_.get()) : &files_,
               .ime = &ime_,
               .clock = stageOptions.manualClock ? &clock_ : nullptr}),
      game_([this](const std::string& line) {
        if (!quiet_) PrintTo(stdout, line);
      }),
      viewport_(&camera_),
      check_(data_.description, GameScriptName(data_), files_),
      module_(options.module.empty() ? DefaultModuleFile() : options.module),
      showsFrameTimes_(options.fps) {
  engine_.SetLogSink([this](StringView line, bool error) { OnLog(line, error); });
  Resize();
  Load(options);
}

bool Stage::LoadDescription(const String& file) {
  const bool loaded = Gui().Load(file.c_str(), &camera_);
  Gui().SetViewport(&viewport_);
  Send(message::kMouseMove);  // the GUI asks where the cursor is
  return loaded;
}

void Stage::OnLog(StringView line, bool error) const {
  if (logListener_) logListener_(line);
  if (error || !quiet_) PrintTo(error ? stderr : stdout, base::ToUtf8(line));
}

void Stage::Load(const Options& options) {
  System::SetBasePath(base::ToUtf16(data_.folder.string() + '/'));
  if (options.description.empty()) return;
  LoadDescription(data_.description);  // it can be read; false says that a style is too short
  if (!quiet_) TellProblems(check_.RunForProblems());
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
  const FrameTimes::Timer timer = frameTimes_.Measure(FramePart::Update);
  clock_.Advance(seconds);
  // Input meets what was drawn last; a page that a delivery brings in is drawn where its entrance begins.
  Send(message::kFrame);
  Deliver();
  engine_.Animate();
  unseenPages_.Look(Gui(), WarnOf);
  PlaceTextField();
  NamePage();
}

// The title names the page in front.
void Stage::NamePage() {
  const std::vector<std::uint32_t>& pages = Gui().GetRenderPages();
  std::string title = ToTitle(base::ToUtf8(data_.description));
  if (!pages.empty()) title = base::ToUtf8(ShortName(Gui().GetPageName(pages.back()))) + " - " + title;
  if (title != title_) window_.SetTitle(title_ = title);
}

void Stage::PlaceTextField() {
  ICGUIText* edited = ime_.IsEnabled() ? FindEditedText(Gui()) : nullptr;
  const auto place = edited != nullptr ? FindRectangle(*edited, camera_, window_.ClientSize()) : std::nullopt;
  ime_.SetField(place.value_or(Rect{}));
}

void Stage::DrawPages() {
  const FrameTimes::Timer timer = frameTimes_.Measure(FramePart::Draw);
  engine_.BeginFrame();
  Send(message::kRender, 0, reinterpret_cast<std::uintptr_t>(&viewport_));
  drawsTooltip_ = true;
  Gui().DrawTooltip(&viewport_);
  drawsTooltip_ = false;
  DrawScreenText();
}

void Stage::DrawScreenText() {
  std::vector<String> lines = keys_;
  if (showsFrameTimes_) lines.push_back(frameTimes_.Line(renderer_.DrawCalls()));
  lines.insert(lines.end(), notice_.begin(), notice_.end());
  if (lines.empty()) return;
  constexpr std::int32_t kTop = 8;
  if (!screenText_) screenText_.emplace();
  screenText_->Draw(lines, kTop, window_.ClientSize().x);
}

void Stage::ShowKeys(StringView keys) { keys_ = keys.empty() ? std::vector<String>() : SplitString(keys, u"\n", 0); }

void Stage::RequireAllPages() {
  for (std::uint32_t i = 0; i < Gui().GetPageCount(); ++i) {
    if (HasScene(*Gui().GetPage(i))) continue;
    const analysis::Report report = check_.Run();
    const analysis::Finding* fault = report.FirstFault();
    throw std::runtime_error(fault != nullptr ? analysis::PrintLine(*fault)
                                              : base::ToUtf8(Gui().GetPageFile(i)) + " has no scene");
  }
}

void Stage::TellProblems(const analysis::Report& report) {
  for (const analysis::Finding& finding : report.findings) WarnOf(analysis::PrintLine(finding));
  notice_ = showsProblems_ ? FirstLines(report) : std::vector<String>();
}

analysis::Report Stage::CheckData() {
  try {
    files_.OpenAnew();
  } catch (const std::runtime_error& problem) {
    RefuseToLoad(problem.what());
  }
  return check_.RunForProblems();
}

void Stage::RefuseToLoad(const std::string& fault) {
  notice_ = {base::ToUtf16("not loaded: " + fault)};
  throw std::runtime_error("not loaded: " + fault);
}

void Stage::Reload() {
  const analysis::Report report = CheckData();
  TellProblems(report);
  if (const analysis::Finding* fault = report.FirstFault()) RefuseToLoad(analysis::PrintLine(*fault));
  const GuiState state(Gui());
  if (reloadListener_) reloadListener_();
  Gui().Release();
  LoadDescription(data_.description);
  state.Restore(Gui());
}

void Stage::Draw() {
  DrawPages();
  const FrameTimes::Timer timer = frameTimes_.Measure(FramePart::OpenGl);
  engine_.EndFrame(viewport_);
  hidden_ = false;
}

bool Stage::Show() {
  const bool isNew = renderer_.HasChanged();
  if (isNew) {
    const FrameTimes::Timer timer = frameTimes_.Measure(FramePart::Display);
    window_.Swap();
  }
  frameTimes_.EndFrame();
  return isNew;
}

void Stage::ShowAgain() {
  renderer_.ShowAgain();
  window_.Swap();
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
