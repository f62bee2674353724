#include "base/recording/recording_engine.h"

#include <algorithm>
#include <utility>

#include "base/utf.h"

namespace qen::base {
namespace {

Backends BackendsOf(RecordingEngine& e, const std::function<void(Backends&)>& adjust) {
  Backends backends{&e.window, &e.render, &e.fonts, &e.scenes, &e.sound, &e.files, &e.ime, &e.clock};
  if (adjust) adjust(backends);
  return backends;
}

}  // namespace

RecordingEngine::RecordingEngine(const std::function<void(Backends&)>& adjust) : engine(BackendsOf(*this, adjust)) {
  engine.SetLogSink([this](StringView line, bool error) { (error ? errors : log).emplace_back(line); });
  viewport.Resize(static_cast<std::uint32_t>(window.size.x), static_cast<std::uint32_t>(window.size.y));
  RecordCalls(true);
}

void RecordingEngine::AddScene(StringView file, SceneData scene) {
  files.AddText(file, u"scene");
  scenes.AddScene(file, std::move(scene));
}

void RecordingEngine::AddAnimation(StringView file, AnimationData animation) {
  files.AddText(file, u"animation");
  scenes.AddAnimation(file, std::move(animation));
}

void RecordingEngine::AddPictureFile(StringView file) { files.AddText(file, u"picture"); }

void RecordingEngine::AddSound(StringView file) { files.AddText(file, file); }

void RecordingEngine::Animate(double seconds) {
  clock.Advance(seconds);
  engine.Animate();
}

void RecordingEngine::Draw(const std::function<void()>& draw) {
  engine.BeginFrame();
  draw();
  engine.EndFrame(viewport);
}

void RecordingEngine::RecordCalls(bool on) {
  tap_.reset();
  if (on) tap_.emplace([this](const Call& call) { calls.push_back(call); });
}

std::vector<Call> RecordingEngine::CallsOf(std::string_view name) const {
  std::vector<Call> found;
  std::ranges::copy_if(calls, std::back_inserter(found), [name](const Call& call) { return call.name == name; });
  return found;
}

}  // namespace qen::base
