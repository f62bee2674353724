// The module, loaded as a host loads it, on an engine without devices.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/recording/recording_engine.h"
#include "base/recording/scene_builder.h"
#include "base/utf.h"
#include "engine/aabb.h"
#include "engine/gui.h"
#include "engine/gui_module.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "engine/matrix.h"
#include "engine/messages.h"
#include "engine/pick_result.h"
#include "engine/scene_node.h"

namespace qen::test {

// The loaded library. Each one begins with fresh module-wide state.
class Module {
 public:
  Module();
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  template <class Function>
  Function Export(const char* name) const {
    return reinterpret_cast<Function>(Symbol(name));
  }

  // What the module hears of cursor and window; null for the system's own, where the module asks the system.
  void UseWindow(base::FakeWindow* window);

 private:
  void* Symbol(const char* name) const;

  void* library_;
};

using Words = std::vector<String>;

// Takes every message, as a game module does.
class Listener final : public Object {
 public:
  struct Record {
    std::uint32_t id = 0;
    GuiMessage record;
  };

  std::int32_t OnMessage(const Msg& message) override;

  std::function<void(std::uint32_t id, GuiMessage& record)> onRecord;  // may set the handled flag
  std::vector<Record> records;                                         // command and notification records, copied

  // The words and arguments of the records, as "word:argument".
  [[nodiscard]] Words Texts() const;
};

// A button of 20 x 10 units: "~b<name>" with its states, at a place in the x-y plane.
std::int32_t AddButton(base::SceneData& scene, const String& name, const Vec3& place, std::int32_t parent = -1);

// Puts what tests print into readable form.
std::string Narrow(StringView text);

// Where a call of Drawing::DrawText3D draws, "x y z".
std::string PlaceOf(const base::Call& call);

class GuiTest : public ::testing::Test {
 protected:
  GuiTest();
  ~GuiTest() override;

  void AddText(StringView file, StringView text) { engine.files.AddText(file, text); }

  // A page file and a scene of buttons side by side, both under `name`.
  void AddButtonPage(const String& name, const std::vector<String>& buttons, StringView definition = u"");

  // Adds the page and gives it the viewport.
  ICGUIPageObject* OpenPage(const String& file);

  // The page of a scene: both files under `name`, the definition naming the scene. It alone is drawn and updated.
  ICGUIPageObject* OpenScene(base::SceneData scene, StringView definition = {}, const String& name = u"s");

  // Draws and updates only this page from now on.
  void ShowOnly(std::uint32_t page);

  void Send(std::uint32_t id, std::uint32_t first = 0, const void* second = nullptr);
  void Frame(double seconds = 1.0 / 60);  // updates, delivers, animates
  void Deliver() { Send(message::kDeliverQueue); }
  void Press() { Send(message::kButtonDown, 1); }
  void ReleaseButton() { Send(message::kButtonUp, 1); }

  void MoveTo(base::Point client);
  // Moves the cursor onto the middle of the widget's box.
  void Hover(ICGUIObject& widget);
  base::Point ProjectMiddle(ICGUIObject& widget) const;
  void Aim(const Vec3& place) { MoveTo(Project(place)); }
  base::Point Project(const Vec3& place) const;  // from the world to client pixels
  void Click(ICGUIObject& widget);
  void ClickHere();
  void Type(StringView keys);  // one key message a character

  // What the first page says of the cursor there, with one or both mouse buttons.
  using Picked = std::pair<const ICGUIObject*, const ICGUIObject*>;  // hovered, clicked
  std::optional<Picked> PickAt(base::Point client, std::uint32_t mouse, Char key = 0, std::uint32_t other = 0);

  // Gives the widget more messages.
  static void Say(ICGUIObject& widget, const std::vector<String>& messages);

  ICGUIObject* Find(const String& name, std::uint32_t page = 0) const { return gui->FindObject(page, name.c_str()); }
  // The engine's calls whose names begin with one of these, in order: each with its arguments as a line, or names
  // alone.
  [[nodiscard]] std::vector<std::string> CallTexts(const std::vector<std::string_view>& beginnings) const;
  [[nodiscard]] std::vector<std::string> CallNames(const std::vector<std::string_view>& beginnings) const;

  // Whether the node is drawn by the last frame of `DrawPages`.
  bool IsDrawn(const String& node, std::uint32_t page = 0);
  void DrawPages();

  base::RecordingEngine engine;
  Module module;
  IGui* gui = nullptr;
  Listener listener;
};

}  // namespace qen::test
