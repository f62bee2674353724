// A whole engine without devices, for tests and measurements.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/call_record.h"
#include "base/clock.h"
#include "base/engine.h"
#include "base/recording/fake_devices.h"
#include "base/recording/fake_files.h"
#include "base/recording/fake_fonts.h"
#include "base/recording/fake_scenes.h"
#include "base/recording/recording_render.h"
#include "engine/camera.h"
#include "engine/viewport.h"

namespace qen::base {

class QEN_API RecordingEngine {
 public:
  // `adjust` may take backends away.
  explicit RecordingEngine(const std::function<void(Backends&)>& adjust = {});
  ~RecordingEngine() = default;
  RecordingEngine(const RecordingEngine&) = delete;
  RecordingEngine& operator=(const RecordingEngine&) = delete;

  // Files that the engine can load under these names.
  void AddScene(StringView file, SceneData scene);
  void AddAnimation(StringView file, AnimationData animation);
  void AddPictureFile(StringView file);
  void AddSound(StringView file);  // FakeSound knows it by its name in UTF-8

  void Animate(double seconds);                  // advances the clock first
  void Draw(const std::function<void()>& draw);  // one frame: begin, `draw`, end

  void RecordCalls(bool on);  // on at first
  [[nodiscard]] std::vector<Call> CallsOf(std::string_view name) const;

  FakeWindow window;
  RecordingRender render;
  FakeFonts fonts;
  FakeScenes scenes;
  FakeSound sound;
  FakeFiles files;
  FakeIme ime;
  ManualClock clock;
  std::vector<Call> calls;
  std::vector<String> log;     // lines of progress
  std::vector<String> errors;  // and of failures
  Engine engine;
  Camera camera;
  Viewport viewport{&camera};  // as large as the window

 private:
  std::optional<CallTap> tap_;
};

}  // namespace qen::base
