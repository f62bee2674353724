// The reference engine: every service of the contract, on the given backends.
#pragma once

#include <functional>
#include <memory>

#include "engine/timer.h"
#include "engine/types.h"

namespace qen {
class Viewport;
}

namespace qen::base {

class IFileBackend;
class IFontBackend;
class IImeBackend;
class IRenderBackend;
class ISceneBackend;
class ISoundBackend;
class IWindowBackend;
struct DrawList;

// None is owned; all must outlive the engine. Null where the program has none: the service then does without (no
// sounds, no texts, no files ...); System::sound and System::ime are null without their backends.
struct Backends {
  IWindowBackend* window = nullptr;
  IRenderBackend* render = nullptr;
  IFontBackend* fonts = nullptr;
  ISceneBackend* scenes = nullptr;
  ISoundBackend* sound = nullptr;
  IFileBackend* files = nullptr;
  IImeBackend* ime = nullptr;
  ITimer* clock = nullptr;  // null: the system's
};

// A line of the log, without its line feed.
using LogSink = std::function<void(StringView line, bool error)>;

// Sets the statics of System while it lives; one at a time.
class QEN_API Engine {
 public:
  explicit Engine(const Backends& backends);
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  void SetLogSink(LogSink sink);  // the default writes to standard output and standard error

  // Moves the animations of every enabled scene on to the clock's present time. Once a frame, before the frame message.
  void Animate();

  void BeginFrame();                  // forgets what was drawn before
  void EndFrame(Viewport& viewport);  // hands what was drawn to the render backend and settles the input method
  void EndHiddenFrame();              // the same without the render backend
  [[nodiscard]] const DrawList& GetDrawList() const;  // of the present frame, for a render backend

 private:
  struct Services;
  std::unique_ptr<Services> services_;
};

}  // namespace qen::base
