#include "tests/module/gui_fixture.h"

#include <algorithm>
#include <sstream>

#include "engine/mesh.h"
#include "engine/msg_daemon.h"
#include "engine/render.h"
#include "engine/scene.h"
#include "engine/system.h"

namespace qen::test {

std::int32_t Listener::OnMessage(const Msg& message) {
  if (message.id != message::kCommand && message.id != message::kNotification) return 0;
  auto& record = *reinterpret_cast<GuiMessage*>(message.second);
  records.push_back({message.id, record});
  if (onRecord) onRecord(message.id, record);
  return 0;
}

std::vector<String> Listener::Texts() const {
  std::vector<String> texts;
  for (const Record& entry : records) texts.push_back(entry.record.command + u":" + entry.record.argument);
  return texts;
}

std::int32_t AddButton(base::SceneData& scene, const String& name, const Vec3& place, std::int32_t parent) {
  const std::int32_t node = base::AddNode(scene, u"~b" + name, parent, place);
  for (const StringView state : {u"normal", u"onmouse", u"disabled"}) {
    base::AddBox(scene, String(state) + u"_" + name, node, {}, {10.0F, 5.0F, 1.0F});
  }
  return node;
}

std::string Narrow(StringView text) { return base::ToUtf8(text); }

std::string PlaceOf(const base::Call& call) {
  std::istringstream matrix(std::get<std::string>(call.arguments[0]));
  float numbers[16] = {};
  for (float& number : numbers) matrix >> number;
  std::ostringstream place;
  place << numbers[12] << ' ' << numbers[13] << ' ' << numbers[14];
  return place.str();
}

GuiTest::GuiTest() {
  module.UseWindow(&engine.window);
  gui = module.Export<ActivateDllFunction>(kActivateDll)();
  System::gui = gui;
  System::daemon->AddHandler(&listener, 0x80000000U);
}

GuiTest::~GuiTest() {
  System::daemon->RemoveHandler(&listener, category::kAll);
  module.Export<DeactivateDllFunction>(kDeactivateDll)();
  System::gui = nullptr;
}

void GuiTest::AddButtonPage(const String& name, const std::vector<String>& buttons, StringView definition) {
  base::SceneData scene;
  float x = 0.0F;
  for (const String& button : buttons) {
    AddButton(scene, button, {x, 0.0F, 0.0F});
    x += 30.0F;
  }
  engine.AddScene(name + u".glb", std::move(scene));
  AddText(name + u".txt", u"name \"" + name + u".glb\"\n" + String(definition));
}

ICGUIPageObject* GuiTest::OpenPage(const String& file) {
  gui->AddPage(file.c_str(), &engine.camera);
  gui->SetViewport(&engine.viewport);
  return gui->GetPage(gui->GetPageCount() - 1);
}

ICGUIPageObject* GuiTest::OpenScene(base::SceneData scene, StringView definition, const String& name) {
  engine.AddScene(name + u".glb", std::move(scene));
  AddText(name + u".txt", u"name " + name + u".glb " + String(definition));
  ICGUIPageObject* page = OpenPage(name + u".txt");
  ShowOnly(gui->GetPageCount() - 1);
  return page;
}

void GuiTest::ShowOnly(std::uint32_t page) {
  gui->GetActivePages() = {page};
  gui->GetRenderPages() = {page};
  gui->GetPage(page)->Disable(false);
}

void GuiTest::Send(std::uint32_t id, std::uint32_t first, const void* second) {
  System::daemon->ProcMsg(id, first, reinterpret_cast<std::uintptr_t>(second), category::kGui);
}

void GuiTest::Frame(double seconds) {
  engine.clock.Advance(seconds);
  Send(message::kFrame);
  Deliver();
  engine.Animate(0.0);
}

void GuiTest::MoveTo(base::Point client) {
  engine.window.cursor = {client.x + engine.window.origin.x, client.y + engine.window.origin.y};
  Send(message::kMouseMove);
}

base::Point GuiTest::ProjectMiddle(ICGUIObject& widget) const {
  Matrix4x4 world = Matrix4x4::Identity;
  AABB box;
  widget.GetMatrix(world);
  widget.GetAABB(box);
  return Project(world * box.center);
}

base::Point GuiTest::Project(const Vec3& place) const {
  const Vec4 seen = Vec4{place.x, place.y, place.z, 1.0F} * (engine.camera.GetView() * engine.camera.GetProjection());
  const auto width = static_cast<float>(engine.window.size.x);
  const auto height = static_cast<float>(engine.window.size.y);
  return {static_cast<std::int32_t>(std::lround((seen.x / seen.w + 1.0F) * 0.5F * width)),
          static_cast<std::int32_t>(std::lround((1.0F - seen.y / seen.w) * 0.5F * height))};
}

void GuiTest::Hover(ICGUIObject& widget) { MoveTo(ProjectMiddle(widget)); }

void GuiTest::Click(ICGUIObject& widget) {
  Hover(widget);
  ClickHere();
}

void GuiTest::ClickHere() {
  Frame();
  Press();
  Frame();
  ReleaseButton();
  Frame();
}

void GuiTest::Type(StringView keys) {
  for (const Char key : keys) Send(message::kKey, key);
}

std::optional<GuiTest::Picked> GuiTest::PickAt(base::Point client, std::uint32_t mouse, Char key, std::uint32_t other) {
  const PickResult* result = gui->GetPage(0)->Pick(&engine.viewport, static_cast<std::uint32_t>(client.x),
                                                   static_cast<std::uint32_t>(client.y), mouse, other, key);
  if (result == nullptr) return std::nullopt;
  return Picked(result->hovered, result->clicked);
}

std::vector<std::string> GuiTest::CallTexts(const std::vector<std::string_view>& beginnings) const {
  std::vector<std::string> texts;
  for (const base::Call& call : engine.calls) {
    const auto begins = [&call](std::string_view beginning) { return call.name.starts_with(beginning); };
    if (!std::ranges::any_of(beginnings, begins)) continue;
    std::ostringstream text;
    text << std::boolalpha << call.name;
    for (const auto& argument : call.arguments) std::visit([&](const auto& value) { text << ' ' << value; }, argument);
    texts.push_back(text.str());
  }
  return texts;
}

std::vector<std::string> GuiTest::CallNames(const std::vector<std::string_view>& beginnings) const {
  std::vector<std::string> names = CallTexts(beginnings);
  for (std::string& name : names) name = name.substr(0, name.find(' '));
  return names;
}

void GuiTest::Say(ICGUIObject& widget, const std::vector<String>& messages) {
  for (const String& text : messages) {
    auto record = std::make_unique<GuiMessage>();
    record->text = text;
    record->source = &widget;
    widget.info->messages.push_back(std::move(record));
  }
}

void GuiTest::DrawPages() {
  engine.Draw([this] { Send(message::kRender, 0, gui->GetViewport()); });
}

bool GuiTest::IsDrawn(const String& node, std::uint32_t page) {
  const TMNode* wanted = gui->GetPage(page)->FindNode(node.c_str());
  if (wanted == nullptr || wanted->mesh == nullptr) ADD_FAILURE() << "no such mesh: " << Narrow(node);
  DrawPages();
  return std::ranges::any_of(engine.render.frame.items, [wanted](const base::DrawItem& item) {
    return item.kind == base::DrawKind::Mesh && item.subMesh == wanted->mesh->GetSubMesh(0);
  });
}

}  // namespace qen::test
