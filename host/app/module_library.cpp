#include "host/app/module_library.h"

#include <SDL.h>

#include <filesystem>
#include <stdexcept>

#include "engine/system.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& file, const std::string& reason) {
  throw std::runtime_error("cannot load module " + file + ": " + reason);
}

template <class Function>
Function Resolve(void* library, const char* name, const std::string& file) {
  void* function = SDL_LoadFunction(library, name);
  if (function == nullptr) Fail(file, std::string("it has no ") + name);
  return reinterpret_cast<Function>(function);
}

}  // namespace

std::string DefaultModuleFile() {
  struct Free {
    void operator()(char* text) const { SDL_free(text); }
  };
  const std::unique_ptr<char, Free> folder(SDL_GetBasePath());
  return (fs::path(folder == nullptr ? "" : folder.get()) / GUIHOST_MODULE).lexically_normal().string();
}

void ModuleLibrary::Unload::operator()(void* library) const { SDL_UnloadObject(library); }

ModuleLibrary::ModuleLibrary(const std::string& file) {
  std::error_code problem;
  if (!fs::exists(file, problem)) Fail(file, "no such file");
  library_.reset(SDL_LoadObject(fs::absolute(file, problem).string().c_str()));
  if (library_ == nullptr) Fail(file, SDL_GetError());
  const auto activate = Resolve<ActivateDllFunction>(library_.get(), kActivateDll, file);
  const auto queryType = Resolve<QueryInterfaceTypeFunction>(library_.get(), kQueryInterfaceType, file);
  static_cast<void>(Resolve<QueryDescriptionStringFunction>(library_.get(), kQueryDescriptionString, file));
  deactivate_ = Resolve<DeactivateDllFunction>(library_.get(), kDeactivateDll, file);
  if (queryType() != kGuiInterfaceType) Fail(file, "it is a module of another kind");
  gui_ = activate();
  if (gui_ == nullptr) Fail(file, "it cannot be activated");
  System::gui = gui_;
}

ModuleLibrary::~ModuleLibrary() {
  deactivate_();
  System::gui = nullptr;
}

}  // namespace qen::host
