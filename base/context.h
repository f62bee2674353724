// The services of the engine that is running.
#pragma once

#include "base/clock.h"
#include "base/engine.h"
#include "base/fonts.h"
#include "base/ime.h"
#include "base/log.h"
#include "base/materials.h"
#include "base/render.h"
#include "base/scene_manager.h"
#include "base/sounds.h"
#include "base/text_cache.h"
#include "base/textures.h"
#include "base/timer.h"
#include "base/vfs.h"
#include "engine/msg_daemon.h"

namespace qen::base {

// In the order of making: what comes later may use what comes before, to its end.
struct Context {
  explicit Context(const Backends& given);

  Backends backends;
  RealClock systemClock;
  ITimer& clock;
  TimerService timer;
  LogService log;
  MsgDaemon daemon;
  FileService files;
  RenderService render;
  FontService fonts;
  TextCache texts;
  TextureService textures;
  MaterialService materials;
  SoundService sounds;
  ImeService ime;
  SceneService scenes;
};

Context* CurrentContext();  // null while there is no engine
void SetCurrentContext(Context* context);

}  // namespace qen::base
