// The sample with its game, played by hand.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/engine.h"
#include "base/recording/recording_engine.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {

// Handles what the GUI leaves to the game, as the sample's script does.
class SampleGame final : public Object {
 public:
  std::int32_t OnMessage(const Msg& message) override;

  std::size_t offered = 0;  // records so far
};

// The module is active while it lives, with nothing loaded at first. Nothing is recorded.
class SampleGui {
 public:
  // `adjust` may put other backends into the places of the recording ones.
  explicit SampleGui(const std::function<void(base::Backends&)>& adjust = {});
  ~SampleGui();
  SampleGui(const SampleGui&) = delete;
  SampleGui& operator=(const SampleGui&) = delete;

  void Activate();
  bool Load();        // the sample, and its viewport
  void Deactivate();  // the module; nothing where that was done

  void Send(std::uint32_t id, std::uint32_t first = 0, const void* second = nullptr);
  void Frame(double seconds = kStep);  // animates, updates, delivers
  void Draw();                         // the pages and the tooltip
  bool Settle();                       // frames until nothing moves; false when that does not come about
  bool Show(std::uint32_t page);       // only this one; settles

  void MoveTo(base::Point client);
  std::optional<base::Point> PlaceOf(ICGUIObject& widget) const;  // client pixels of its middle
  void Hover(ICGUIObject& widget);
  void ClickHere();

  // How many command records were offered to the game by the last Frame: those that waited in the queue.
  [[nodiscard]] std::size_t Offered() const { return game_.offered; }

  // The widget of that name on the page, null when there is none.
  [[nodiscard]] ICGUIObject* Find(StringView pageName, StringView widget) const;

  static constexpr double kStep = 0.25;  // seconds; pages settle in a few of them

  base::RecordingEngine engine;
  IGui* gui = nullptr;

 private:
  Module module_;
  SampleGame game_;
};

}  // namespace qen::test
