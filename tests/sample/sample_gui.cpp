#include "tests/sample/sample_gui.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "formats/command_words.h"
#include "host/app/pages.h"
#include "host/app/widget_place.h"
#include "host/scenes/gltf_scenes.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

// Of each mesh the corners of its box, of each picture one pixel.
base::SceneData Reduce(base::SceneData scene) {
  for (auto& mesh : scene.meshes) {
    for (auto& [vertices, indices, material] : mesh) {
      if (vertices.empty()) continue;
      const auto [left, right] = std::ranges::minmax(vertices, {}, [](const auto& v) { return v.position.x; });
      const auto [low, high] = std::ranges::minmax(vertices, {}, [](const auto& v) { return v.position.y; });
      const auto [far, near] = std::ranges::minmax(vertices, {}, [](const auto& v) { return v.position.z; });
      vertices = {left, right, low, high, far, near};
      indices = {0, 1, 2, 3, 4, 5};
    }
  }
  for (base::Image& image : scene.images) image = {1, 1, {255, 255, 255, 255}};
  return scene;
}

// What adds a file of the sample to an engine; all were read once.
using AddFile = std::function<void(base::RecordingEngine&)>;

std::vector<AddFile> ReadSample() {
  const fs::path root = "samples/skylantern";
  base::FakeFiles none;
  host::GltfScenes reader(none, [](StringView) {});
  std::vector<AddFile> files;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream in(entry.path(), std::ios::binary);
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
    const fs::path place = entry.path().lexically_relative(root);
    const String name = base::ToUtf16(place.generic_string());
    String error;
    if (*place.begin() == "scenes") {
      const base::SceneData scene = Reduce(reader.ParseScene(name, bytes, true, error).value());
      files.emplace_back([name, scene](auto& engine) { engine.AddScene(name, scene); });
    } else if (*place.begin() == "anims") {
      const base::AnimationData animation = reader.ParseAnimation(name, bytes, error).value();
      files.emplace_back([name, animation](auto& engine) { engine.AddAnimation(name, animation); });
    } else {
      files.emplace_back([name, bytes](auto& engine) { engine.files.Add(name, bytes); });
    }
  }
  return files;
}

}  // namespace

std::int32_t SampleGui::Game::OnMessage(const Msg& message) {
  if (message.id != message::kCommand && message.id != message::kNotification) return 0;
  ++offered;
  auto& record = *reinterpret_cast<GuiMessage*>(message.second);
  if (formats::FindCommand(record.command) != nullptr) return 0;
  record.handled = 1;
  if (System::gui == nullptr) return 0;
  if (record.command == u"language") System::gui->SetLanguage(record.argument);
  if (record.command == u"newgame" || record.command == u"loadgame") System::gui->SetPage(0);
  return 0;
}

SampleGui::SampleGui() {
  static const std::vector<AddFile> files = ReadSample();
  engine.RecordCalls(false);
  for (const AddFile& add : files) add(engine);
}

SampleGui::~SampleGui() { Deactivate(); }

void SampleGui::Activate() {
  gui = module_.Export<ActivateDllFunction>(kActivateDll)();
  System::gui = gui;
  if (System::daemon != nullptr) System::daemon->AddHandler(&game_, 0x80000000U);
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
  return host::Settle(*gui, 200, [this] {
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
  for (const std::uint32_t button : {message::kButtonDown, message::kButtonUp}) {
    Send(button, 1);
    Frame();
  }
}

ICGUIObject* SampleGui::Find(StringView pageName, StringView widget) const {
  const auto page = host::FindPageByName(*gui, pageName);
  if (!page) return nullptr;
  return host::FindFirstWidget(*gui, {*page}, [widget](const ICGUIObject& w) { return w.info->name == widget; });
}

}  // namespace qen::test
