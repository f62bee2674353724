#include "engine/system.h"

namespace qen {
namespace {

String& BasePath() {
  static String path = u"./";
  return path;
}

constinit WindowHandle mainWindow = nullptr;

}  // namespace

constinit MsgDaemon* System::daemon = nullptr;
constinit IGui* System::gui = nullptr;
constinit ISceneMng* System::sceneMng = nullptr;
constinit IRender* System::render = nullptr;
constinit IOutput* System::output = nullptr;
constinit IVFS* System::vfs = nullptr;
constinit ITimer* System::timer = nullptr;
constinit IIMEQUENRIN* System::ime = nullptr;
constinit ISound* System::sound = nullptr;

const String& System::GetBasePath() { return BasePath(); }

void System::SetBasePath(StringView path) {
  String& base = BasePath();
  base = path.empty() ? StringView(u".") : path;
  if (!base.ends_with(u'/') && !base.ends_with(u'\\')) base += u'/';
}

WindowHandle System::GetMainWindowHandle() { return mainWindow; }
void System::SetMainWindowHandle(WindowHandle window) { mainWindow = window; }

}  // namespace qen
