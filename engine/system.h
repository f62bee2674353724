// The engine's services. The engine sets them before any module is activated and clears them after the last is gone.
#pragma once

#include "engine/types.h"

namespace qen {

class IGui;
class IIMEQUENRIN;
class IOutput;
class IRender;
class ISceneMng;
class ISound;
class ITimer;
class IVFS;
class MsgDaemon;

using WindowHandle = void*;

class QEN_API System {
 public:
  static MsgDaemon* daemon;
  static IGui* gui;  // what ActivateDll of the GUI module returned; set by the host
  static ISceneMng* sceneMng;
  static IRender* render;
  static IOutput* output;
  static IVFS* vfs;
  static ITimer* timer;
  static IIMEQUENRIN* ime;  // may be null
  static ISound* sound;     // may be null

  static const String& GetBasePath();  // folder of the data, ends with a separator
  static void SetBasePath(StringView path);
  static WindowHandle GetMainWindowHandle();
  static void SetMainWindowHandle(WindowHandle window);
};

}  // namespace qen
