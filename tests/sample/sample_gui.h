// The sample with its game, played by hand.
#pragma once

#include <optional>

#include "tests/module/gui_fixture.h"

namespace qen::test {

// The module on the recording engine, where nothing is recorded. Its scenes are brought down to what the GUI sees of
// them, so that thousands of engines can load them.
class SampleGui {
 public:
  SampleGui();
  ~SampleGui();
  SampleGui(const SampleGui&) = delete;
  SampleGui& operator=(const SampleGui&) = delete;

  void Activate();    // the module; nothing is loaded at first
  bool Load();        // the sample, and its viewport
  void Deactivate();  // the module; nothing where that was done

  void Send(std::uint32_t id, std::uint32_t first = 0, const void* second = nullptr);
  void Frame(double seconds = 0.25);  // animates, updates, delivers; pages settle in a few of them
  void Draw();                        // the pages and the tooltip
  bool Settle();                      // frames until nothing moves; false when that does not come about
  bool Show(std::uint32_t page);      // only this one; settles

  void MoveTo(base::Point client);
  std::optional<base::Point> PlaceOf(ICGUIObject& widget) const;  // client pixels of its middle
  void Hover(ICGUIObject& widget);
  void ClickHere();

  // How many command records were offered to the game by the last Frame: those that waited in the queue.
  [[nodiscard]] std::size_t Offered() const { return game_.offered; }

  // The widget of that name on the page, null when there is none.
  [[nodiscard]] ICGUIObject* Find(StringView pageName, StringView widget) const;

  base::RecordingEngine engine;
  IGui* gui = nullptr;

 private:
  // Handles what the GUI leaves to the game, as the sample's script does.
  struct Game final : Object {
    std::int32_t OnMessage(const Msg& message) override;

    std::size_t offered = 0;  // records so far
  };

  Module module_;
  Game game_;
};

}  // namespace qen::test
