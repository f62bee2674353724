#include "tests/faults/failing_engine.h"

#include <dlfcn.h>

#include <algorithm>

#include "engine/platform.h"
#include "engine/scene.h"
#include "engine/system.h"

namespace qen::test {
namespace {

FailingEngine* current = nullptr;

template <class Wrapper, class Wrapped>
void PutInFront(Wrapper& wrapper, Wrapped*& place) {
  wrapper.real = place;
  place = &wrapper;
}

}  // namespace

FailingEngine::FailingEngine(std::size_t struckCall)
    : plan(struckCall), sample([this](base::Backends& backends) {
        PutInFront(files, backends.files);
        PutInFront(sceneFiles, backends.scenes);
        PutInFront(renderer, backends.render);
        PutInFront(faces, backends.fonts);
        PutInFront(samples, backends.sound);
      }) {
  PutInFront<failing::Scenes, ISceneMng>(scenes, System::sceneMng);
  PutInFront<failing::Sounds, ISound>(sounds, System::sound);
  current = this;
}

FailingEngine::~FailingEngine() {
  sample.Deactivate();
  current = nullptr;
}

std::string FailingEngine::Kept() const {
  const base::RecordingEngine& devices = sample.engine;
  std::string kept;
  const auto add = [&kept](const char* what, std::size_t count) {
    if (count > 0) kept += std::to_string(count) + ' ' + what + ' ';
  };
  add("scenes", scenes.open.size());
  add("registered scenes", scenes.registered.size());
  add("instances", scenes.instances.size());
  add("fonts", fonts.used.size());
  add("materials", materials.used.size());
  add("textures", textures.used.size());
  add("sounds", sounds.made.size());
  add("faces", static_cast<std::size_t>(devices.fonts.faceCount));
  add("pictures", devices.render.textures.size());
  add("geometries", devices.render.geometries.size());
  add("samples", devices.sound.loaded.size());
  return kept;
}

}  // namespace qen::test

// The dynamic linker gives the program's functions to the module instead of the engine library's.
namespace qen {
namespace {

using test::current;

template <class Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <class Manager, class Wrapper>
Manager* InFrontOf(const char* function, Wrapper test::FailingEngine::*wrapper) {
  auto* real = Real<Manager*()>(function)();
  if (current == nullptr || real == nullptr) return real;
  if (!current->managers) return nullptr;
  (current->*wrapper).real = real;
  return &(current->*wrapper);
}

bool Fails(const char* call) { return current == nullptr || current->plan.Fails(call); }

}  // namespace

FontManager* FontManager::GetSingleton() {
  return InFrontOf<FontManager>("_ZN3qen11FontManager12GetSingletonEv", &test::FailingEngine::fonts);
}

TextureManager* TextureManager::GetSingleton() {
  return InFrontOf<TextureManager>("_ZN3qen14TextureManager12GetSingletonEv", &test::FailingEngine::textures);
}

MaterialManager* MaterialManager::GetSingleton() {
  return InFrontOf<MaterialManager>("_ZN3qen15MaterialManager12GetSingletonEv", &test::FailingEngine::materials);
}

TMNode* SimpleScene::FindMapNode(const String& name) const {
  if (Fails("SimpleScene::FindMapNode")) return nullptr;
  const auto found = std::ranges::find(GetNodes(), name, &TMNode::name);
  return found != GetNodes().end() ? *found : nullptr;
}

namespace platform {

bool GetCursorPos(POINT* point) {
  return !Fails("GetCursorPos") && Real<bool(POINT*)>("_ZN3qen8platform12GetCursorPosEPNS0_5POINTE")(point);
}

bool SetCursorPos(int x, int y) {
  return !Fails("SetCursorPos") && Real<bool(int, int)>("_ZN3qen8platform12SetCursorPosEii")(x, y);
}

bool ScreenToClient(WindowHandle window, POINT* point) {
  constexpr const char* kName = "_ZN3qen8platform14ScreenToClientEPvPNS0_5POINTE";
  return !Fails("ScreenToClient") && Real<bool(WindowHandle, POINT*)>(kName)(window, point);
}

bool ClientToScreen(WindowHandle window, POINT* point) {
  constexpr const char* kName = "_ZN3qen8platform14ClientToScreenEPvPNS0_5POINTE";
  return !Fails("ClientToScreen") && Real<bool(WindowHandle, POINT*)>(kName)(window, point);
}

bool GetClientRect(WindowHandle window, RECT* rect) {
  constexpr const char* kName = "_ZN3qen8platform13GetClientRectEPvPNS0_4RECTE";
  return !Fails("GetClientRect") && Real<bool(WindowHandle, RECT*)>(kName)(window, rect);
}

// Nothing is written: what becomes of files on failing disks is tested by itself.
bool CopyFileW(const Char* /*from*/, const Char* /*to*/, bool /*failIfExists*/) { return !Fails("CopyFileW"); }

int _wmkdir(const Char* /*folder*/) { return Fails("_wmkdir") ? -1 : 0; }

bool SaveWholeFile(const Char* /*file*/, const void* /*bytes*/, std::size_t /*size*/) {
  return !Fails("SaveWholeFile");
}

}  // namespace platform
}  // namespace qen
