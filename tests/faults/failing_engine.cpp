#include "tests/faults/failing_engine.h"

#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "engine/font.h"
#include "engine/material.h"
#include "engine/platform.h"
#include "engine/scene.h"
#include "engine/scene_instance.h"
#include "engine/scene_manager.h"
#include "engine/sound.h"
#include "engine/system.h"
#include "engine/texture.h"

namespace qen::test {
namespace {

FailingEngine* current = nullptr;

// Stands in for a virtual function, in the table of one class, whose layout is that of the Itanium C++ ABI.
template <auto kMethod, class Method = decltype(kMethod)>
struct Hook;

template <auto kMethod, class Interface, class ResultType, class... Arguments>
struct Hook<kMethod, ResultType (Interface::*)(Arguments...)> {
  using Result = ResultType;
  using Function = std::function<Result(Arguments...)>;
  using StandIn = std::function<Result(const Function& real, Arguments...)>;

  static void Install(Interface& object, StandIn function) {
    standIn = std::move(function);
    if (entry != nullptr) return;
    const auto method = kMethod;
    std::size_t offset = 0;
    std::memcpy(&offset, &method, sizeof offset);
    entry = *reinterpret_cast<void***>(&object) + offset / sizeof(void*);
    original = *entry;
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    mprotect(reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(entry) / page * page), page,
             PROT_READ | PROT_WRITE);
    *entry = reinterpret_cast<void*>(&Call);
  }

  static Result Call(Interface* self, Arguments... arguments) {
    const auto real = [self](Arguments... given) -> Result {
      *entry = original;
      struct Again {
        ~Again() { *entry = reinterpret_cast<void*>(&Call); }
      } again;
      return (self->*kMethod)(std::forward<Arguments>(given)...);
    };
    return standIn(real, std::forward<Arguments>(arguments)...);
  }

  static inline void** entry = nullptr;
  static inline void* original = nullptr;
  static inline StandIn standIn;
};

// Where the call fails it gives this, or what `fail` gives, when it is the turn of the call in that other way.
template <auto kMethod, auto... kFailure>
void MayFail(auto& service, const char* call, const char* otherCall = nullptr,
             typename Hook<kMethod>::StandIn fail = {}) {
  using Result = typename Hook<kMethod>::Result;
  Hook<kMethod>::Install(service, [call, otherCall, fail](const auto& real, auto&&... arguments) -> Result {
    if (current->Fails(call)) return Result{kFailure...};
    if (fail && current->Fails(otherCall)) return fail(real, arguments...);
    Result result = real(arguments...);
    if constexpr (std::is_same_v<Result, Material*>) current->usedMaterials += result != nullptr ? 1U : 0U;
    return result;
  });
}

struct InstanceWithoutLevels final : InstanceObject {
  void Disable(bool) override {}
  void GetLOD(std::uint32_t, SimpleSceneInstance*& instance, float&) override { instance = nullptr; }
};

}  // namespace

FailingEngine::FailingEngine(std::size_t struckCall) : struck(struckCall) {
  static InstanceWithoutLevels withoutLevels;
  current = this;
  base::RecordingEngine& devices = sample.engine;
  MayFail<&base::IFileBackend::Read>(devices.files, "IFileBackend::Read", "IFileBackend::Read, empty",
                                     [](const auto& real, StringView name, auto& bytes) {
                                       const bool read = real(name, bytes);
                                       bytes.clear();
                                       return read;
                                     });
  using Scenes = base::ISceneBackend;
  MayFail<&Scenes::ParseScene>(devices.scenes, "ISceneBackend::ParseScene", "ISceneBackend::ParseScene, empty",
                               [](auto&&...) { return base::SceneData{}; });
  MayFail<&Scenes::ParseAnimation>(devices.scenes, "ISceneBackend::ParseAnimation",
                                   "ISceneBackend::ParseAnimation, empty",
                                   [](auto&&...) { return base::AnimationData{}; });
  MayFail<&Scenes::ParseImage>(devices.scenes, "ISceneBackend::ParseImage");
  MayFail<&base::IRenderBackend::CreateTexture>(devices.render, "IRenderBackend::CreateTexture");
  MayFail<&base::IRenderBackend::CreateGeometry>(devices.render, "IRenderBackend::CreateGeometry");
  MayFail<&base::IFontBackend::CreateFace>(devices.fonts, "IFontBackend::CreateFace");
  MayFail<&base::ISoundBackend::Load>(devices.sound, "ISoundBackend::Load");

  ISceneMng& scenes = *System::sceneMng;
  MayFail<&ISceneMng::CreateScene>(scenes, "ISceneMng::CreateScene");
  MayFail<&ISceneMng::AddSimpleScene>(scenes, "ISceneMng::AddSimpleScene");
  MayFail<&ISceneMng::AddLight>(scenes, "ISceneMng::AddLight");
  MayFail<&ISceneMng::CreateInstance, -1>(
      scenes, "ISceneMng::CreateInstance", "ISceneMng::CreateInstance, not animated",
      [](const auto& real, auto& scene, auto& shown, auto& transform, InstanceDesc desc, auto& attach) {
        desc.animates = false;
        return real(scene, shown, transform, desc, attach);
      });
  MayFail<&ISceneMng::GetInstance>(scenes, "ISceneMng::GetInstance", "InstanceObject::GetLOD",
                                   [](auto&&...) { return &withoutLevels; });
  MayFail<&ISound::CreateSound>(*System::sound, "ISound::CreateSound");
  MayFail<&FontManager::CreateEx>(*FontManager::GetSingleton(), "FontManager::CreateEx");
  MayFail<&TextureManager::Load>(*TextureManager::GetSingleton(), "TextureManager::Load");
  MaterialManager& materials = *MaterialManager::GetSingleton();
  MayFail<&MaterialManager::Create>(materials, "MaterialManager::Create");
  MayFail<&MaterialManager::GetByName>(materials, "MaterialManager::GetByName");
  Hook<&MaterialManager::Destroy>::Install(materials, [this](const auto& real, Resource* material) {
    usedMaterials -= material != nullptr ? 1U : 0U;
    real(material);
  });
}

FailingEngine::~FailingEngine() {
  sample.Deactivate();
  current = nullptr;
}

std::array<std::size_t, 5> FailingEngine::Kept() const {
  const base::RecordingEngine& devices = sample.engine;
  return {static_cast<std::size_t>(devices.fonts.faceCount), devices.render.textures.size(),
          devices.render.geometries.size(), devices.sound.loaded.size(), usedMaterials};
}

}  // namespace qen::test

// The dynamic linker gives the program's functions to the module instead of the engine library's.
namespace qen {
namespace {

using test::current;

// The engine library's function of that name.
template <auto kFunction>
auto Real() {
  Dl_info self{};
  dladdr(reinterpret_cast<void*>(kFunction), &self);
  return reinterpret_cast<decltype(kFunction)>(dlsym(RTLD_NEXT, self.dli_sname));
}

template <auto kFunction>
bool Passes(const char* call, auto... arguments) {
  static const auto real = Real<kFunction>();
  return current != nullptr && !current->Fails(call) && real(arguments...);
}

template <class Manager>
Manager* Singleton() {
  static const auto real = Real<&Manager::GetSingleton>();
  return current == nullptr || current->managers ? real() : nullptr;
}

}  // namespace

FontManager* FontManager::GetSingleton() { return Singleton<FontManager>(); }
TextureManager* TextureManager::GetSingleton() { return Singleton<TextureManager>(); }
MaterialManager* MaterialManager::GetSingleton() { return Singleton<MaterialManager>(); }

TMNode* SimpleScene::FindMapNode(const String& name) const {
  if (current->Fails("SimpleScene::FindMapNode")) return nullptr;
  const auto found = std::ranges::find(GetNodes(), name, &TMNode::name);
  return found != GetNodes().end() ? *found : nullptr;
}

namespace platform {

bool GetCursorPos(POINT* point) { return Passes<GetCursorPos>("GetCursorPos", point); }
bool SetCursorPos(int x, int y) { return Passes<SetCursorPos>("SetCursorPos", x, y); }
bool ScreenToClient(WindowHandle window, POINT* point) {
  return Passes<ScreenToClient>("ScreenToClient", window, point);
}
bool ClientToScreen(WindowHandle window, POINT* point) {
  return Passes<ClientToScreen>("ClientToScreen", window, point);
}
bool GetClientRect(WindowHandle window, RECT* rect) { return Passes<GetClientRect>("GetClientRect", window, rect); }

// Nothing is written: what becomes of files on failing disks is tested by itself.
bool CopyFileW(const Char*, const Char*, bool) { return !current->Fails("CopyFileW"); }
int _wmkdir(const Char*) { return current->Fails("_wmkdir") ? -1 : 0; }
bool SaveWholeFile(const Char*, const void*, std::size_t) { return !current->Fails("SaveWholeFile"); }

}  // namespace platform
}  // namespace qen
