#include "tests/faults/failing_engine.h"

#include <dlfcn.h>

#include <algorithm>

#include "engine/platform.h"
#include "engine/scene.h"
#include "engine/system.h"
#include "tests/faults/failing_backends.h"
#include "tests/faults/failing_services.h"

namespace qen::test {
namespace {

FailingEngine::Parts* current = nullptr;

template <class Wrapper, class Wrapped>
void PutInFront(Wrapper& wrapper, Wrapped*& place) {
  wrapper.real = place;
  place = &wrapper;
}

}  // namespace

struct FailingEngine::Parts {
  explicit Parts(std::size_t struckCall)
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
  ~Parts() {
    sample.Deactivate();
    current = nullptr;
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  FaultPlan plan;
  bool managers = true;
  failing::Files files{plan};
  failing::SceneFiles sceneFiles{plan};
  failing::Renderer renderer{plan};
  failing::Faces faces{plan};
  failing::Samples samples{plan};
  failing::Scenes scenes{plan};
  failing::Sounds sounds{plan};
  failing::Fonts fonts{plan};
  failing::Textures textures{plan};
  failing::Materials materials{plan};
  SampleGui sample;
};

FailingEngine::FailingEngine(std::size_t struckCall) : parts_(std::make_unique<Parts>(struckCall)) {}

FailingEngine::~FailingEngine() = default;

const FaultPlan& FailingEngine::Plan() const { return parts_->plan; }

SampleGui& FailingEngine::Sample() const { return parts_->sample; }

void FailingEngine::TakeManagersAway() { parts_->managers = false; }

std::string FailingEngine::Kept() const {
  const Parts& p = *parts_;
  const base::RecordingEngine& devices = p.sample.engine;
  std::string kept;
  const auto add = [&kept](const char* what, std::size_t count) {
    if (count > 0) kept += std::to_string(count) + ' ' + what + ' ';
  };
  add("scenes", p.scenes.open.size());
  add("registered scenes", p.scenes.registered.size());
  add("instances", p.scenes.instances.size());
  add("fonts", p.fonts.used.size());
  add("materials", p.materials.used.size());
  add("textures", p.textures.used.size());
  add("sounds", p.sounds.made.size());
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

template <class Manager, class Wrapper>
Manager* InFrontOf(const char* function, Wrapper test::FailingEngine::Parts::*wrapper) {
  auto* real = reinterpret_cast<Manager* (*)()>(dlsym(RTLD_NEXT, function))();
  if (current == nullptr || real == nullptr) return real;
  if (!current->managers) return nullptr;
  (current->*wrapper).real = real;
  return &(current->*wrapper);
}

bool Fails(const char* call) { return current == nullptr || current->plan.Fails(call); }

base::FakeWindow& Window() { return current->sample.engine.window; }

}  // namespace

using Parts = test::FailingEngine::Parts;

FontManager* FontManager::GetSingleton() {
  return InFrontOf<FontManager>("_ZN3qen11FontManager12GetSingletonEv", &Parts::fonts);
}

TextureManager* TextureManager::GetSingleton() {
  return InFrontOf<TextureManager>("_ZN3qen14TextureManager12GetSingletonEv", &Parts::textures);
}

MaterialManager* MaterialManager::GetSingleton() {
  return InFrontOf<MaterialManager>("_ZN3qen15MaterialManager12GetSingletonEv", &Parts::materials);
}

TMNode* SimpleScene::FindMapNode(const String& name) const {
  if (Fails("SimpleScene::FindMapNode")) return nullptr;
  const auto found = std::ranges::find(GetNodes(), name, &TMNode::name);
  return found != GetNodes().end() ? *found : nullptr;
}

namespace platform {

bool GetCursorPos(POINT* point) {
  if (Fails("GetCursorPos")) return false;
  *point = {Window().cursor.x, Window().cursor.y};
  return true;
}

bool SetCursorPos(int x, int y) {
  if (Fails("SetCursorPos")) return false;
  Window().cursor = {x, y};
  return true;
}

bool ScreenToClient(WindowHandle /*window*/, POINT* point) {
  if (Fails("ScreenToClient")) return false;
  *point = {point->x - Window().origin.x, point->y - Window().origin.y};
  return true;
}

bool ClientToScreen(WindowHandle /*window*/, POINT* point) {
  if (Fails("ClientToScreen")) return false;
  *point = {point->x + Window().origin.x, point->y + Window().origin.y};
  return true;
}

bool GetClientRect(WindowHandle /*window*/, RECT* rect) {
  if (Fails("GetClientRect")) return false;
  *rect = {0, 0, Window().size.x, Window().size.y};
  return true;
}

// Nothing is written: what becomes of files on failing disks is tested by itself.
bool CopyFileW(const Char* /*from*/, const Char* /*to*/, bool /*failIfExists*/) { return !Fails("CopyFileW"); }

int _wmkdir(const Char* /*folder*/) { return Fails("_wmkdir") ? -1 : 0; }

bool SaveWholeFile(const Char* /*file*/, const void* /*bytes*/, std::size_t /*size*/) {
  return !Fails("SaveWholeFile");
}

}  // namespace platform
}  // namespace qen
