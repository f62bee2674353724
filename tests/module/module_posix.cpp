#include <dlfcn.h>

#include <stdexcept>

#include "tests/module/gui_fixture.h"

namespace qen::test {

Module::Module() : library_(dlopen(GUI_MODULE_FILE, RTLD_NOW | RTLD_LOCAL)) {
  if (library_ == nullptr) throw std::runtime_error(dlerror());
}

Module::~Module() { dlclose(library_); }

void* Module::Symbol(const char* name) const {
  void* symbol = dlsym(library_, name);
  if (symbol == nullptr) throw std::runtime_error(dlerror());
  return symbol;
}

// The engine asks its window by itself.
void Module::UseWindow(base::FakeWindow*) {}

}  // namespace qen::test
