// The GUI module, loaded while the program runs.
#pragma once

#include <memory>
#include <string>

#include "engine/gui.h"
#include "engine/gui_module.h"

namespace qen::host {

// Where the module is when the program was built or installed as usual.
std::string DefaultModuleFile();

// Active, and known as System::gui, while this lives. The engine must exist before and after.
class ModuleLibrary {
 public:
  // Throws std::runtime_error, naming the file, when it is no GUI module of the right kind or cannot be activated.
  explicit ModuleLibrary(const std::string& file);
  ~ModuleLibrary();
  ModuleLibrary(const ModuleLibrary&) = delete;
  ModuleLibrary& operator=(const ModuleLibrary&) = delete;

  [[nodiscard]] IGui& Gui() const { return *gui_; }

 private:
  struct Unload {
    void operator()(void* library) const;
  };

  std::unique_ptr<void, Unload> library_;
  DeactivateDllFunction deactivate_ = nullptr;
  IGui* gui_ = nullptr;
};

}  // namespace qen::host
