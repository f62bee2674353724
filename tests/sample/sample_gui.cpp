#include "tests/sample/sample_gui.h"

#include <algorithm>
#include <array>

#include "formats/command_words.h"
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "host/app/pages.h"
#include "host/app/widget_place.h"
#include "tests/sample/sample_data.h"

namespace qen::test {
namespace {

constexpr std::uint32_t kMainButton = 1;
constexpr std::uint32_t kGameCategory = 0x80000000U;
constexpr std::int32_t kLongestWait = 200;  // frames

}  // namespace

std::int32_t SampleGame::OnMessage(const Msg& message) {
  if (message.id != message::kCommand && message.id != message::kNotification) return 0;
  using namespace command;  // NOLINT(google-build-using-namespace): its words
  constexpr std::array kOfTheGui{
      kSetPage,       kUndoPage,   kAddRenderPage, kRemRenderPage, kAddActivePage, kRemActivePage, kRemoveAllFromRender,
      kToggleChecked, kRadioGroup, kShow,          kHide,          kDisable,       kSetText};
  ++offered;
  auto& record = *reinterpret_cast<GuiMessage*>(message.second);
  if (std::ranges::find(kOfTheGui, record.command) != kOfTheGui.end()) return 0;
  record.handled = 1;
  if (System::gui == nullptr) return 0;
  if (record.command == u"language") System::gui->SetLanguage(record.argument);
  if (record.command == u"newgame" || record.command == u"loadgame") System::gui->SetPage(0);
  return 0;
}

SampleGui::SampleGui(const std::function<void(base::Backends&)>& adjust) : engine(adjust) {
  engine.RecordCalls(false);
  SampleData::Get().AddTo(engine);
}

SampleGui::~SampleGui() { Deactivate(); }

void SampleGui::Activate() {
  gui = module_.Export<ActivateDllFunction>(kActivateDll)();
  System::gui = gui;
  if (System::daemon != nullptr) System::daemon->AddHandler(&game_, kGameCategory);
}

bool SampleGui::Load() {
  const bool loaded = gui->Load(u"gui.txt", &engine.camera);
  gui->SetViewport(&engine.viewport);
  return loaded;
}

void SampleGui::Deactivate() {
  if (gui == nullptr) return;
  if (System::daemon != nullptr) System::daemon->RemoveHandler(&game_, category::kAll);
  module_.Export<DeactivateDllFunction>(kDeactivateDll)();
  System::gui = nullptr;
  gui = nullptr;
}

void SampleGui::Send(std::uint32_t id, std::uint32_t first, const void* second) {
  const Msg message{id, first, reinterpret_cast<std::uintptr_t>(second)};
  if (System::daemon == nullptr) {
    gui->OnMessage(message);
  } else {
    System::daemon->ProcMsg(message.id, message.first, message.second, category::kGui);
  }
}

void SampleGui::Frame(double seconds) {
  engine.clock.Advance(seconds);
  Send(message::kFrame);
  game_.offered = 0;
  Send(message::kDeliverQueue);
  engine.Animate(0.0);
}

void SampleGui::Draw() {
  engine.Draw([this] {
    Send(message::kRender, 0, gui->GetViewport());
    gui->DrawTooltip(gui->GetViewport());
  });
}

bool SampleGui::Settle() {
  return host::Settle(*gui, kLongestWait, [this] {
    Frame();
    return Offered() > 0;
  });
}

bool SampleGui::Show(std::uint32_t page) {
  gui->SetPage(page);
  return Settle();
}

void SampleGui::MoveTo(base::Point client) {
  engine.window.cursor = {client.x + engine.window.origin.x, client.y + engine.window.origin.y};
  Send(message::kMouseMove);
}

std::optional<base::Point> SampleGui::PlaceOf(ICGUIObject& widget) const {
  return host::FindPlace(widget, engine.camera, engine.window.size);
}

void SampleGui::Hover(ICGUIObject& widget) {
  if (const auto place = PlaceOf(widget)) MoveTo(*place);
  Frame();
}

void SampleGui::ClickHere() {
  Send(message::kButtonDown, kMainButton);
  Frame();
  Send(message::kButtonUp, kMainButton);
  Frame();
}

ICGUIObject* SampleGui::Find(StringView pageName, StringView widget) const {
  const auto page = host::FindPageByName(*gui, pageName);
  if (!page) return nullptr;
  return host::FindFirstWidget(*gui, {*page}, [widget](const ICGUIObject& w) { return w.info->name == widget; });
}

}  // namespace qen::test
