#include "base/engine.h"

#include <utility>

#include "base/context.h"
#include "engine/system.h"
#include "engine/viewport.h"

namespace qen::base {

struct Engine::Services : Context {
  using Context::Context;
};

Engine::Engine(const Backends& backends) : services_(std::make_unique<Services>(backends)) {
  SetCurrentContext(services_.get());
  System::daemon = &services_->daemon;
  System::sceneMng = &services_->scenes;
  System::render = &services_->render;
  System::output = &services_->log;
  System::vfs = &services_->files;
  System::timer = &services_->timer;
  System::ime = backends.ime == nullptr ? nullptr : &services_->ime;
  System::sound = backends.sound == nullptr ? nullptr : &services_->sounds;
}

Engine::~Engine() {
  System::daemon = nullptr;
  System::gui = nullptr;
  System::sceneMng = nullptr;
  System::render = nullptr;
  System::output = nullptr;
  System::vfs = nullptr;
  System::timer = nullptr;
  System::ime = nullptr;
  System::sound = nullptr;
  services_.reset();
  SetCurrentContext(nullptr);
}

void Engine::SetLogSink(LogSink sink) { services_->log.SetSink(std::move(sink)); }

void Engine::Animate() { services_->scenes.Animate(); }

void Engine::BeginFrame() {
  services_->render.BeginFrame();
  services_->texts.BeginFrame();
}

void Engine::EndFrame(Viewport& viewport) {
  services_->render.EndFrame(static_cast<std::int32_t>(viewport.GetActualWidth()),
                             static_cast<std::int32_t>(viewport.GetActualHeight()));
  services_->ime.Settle();
}

void Engine::EndHiddenFrame() { services_->ime.Settle(); }

const DrawList& Engine::GetDrawList() const { return services_->render.GetDrawList(); }

}  // namespace qen::base
