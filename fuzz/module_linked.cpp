// The module's exports, linked: so that a program can reach inside, and nothing is loaded anew.
#include <cstring>

#include "tests/module/gui_fixture.h"

extern "C" {
qen::IGui* ActivateDll();
void DeactivateDll();
}

namespace qen::test {

Module::Module() : library_(reinterpret_cast<void*>(&ActivateDll)) {}

Module::~Module() = default;

void* Module::Symbol(const char* name) const {
  return std::strcmp(name, kActivateDll) == 0 ? library_ : reinterpret_cast<void*>(&DeactivateDll);
}

void Module::UseWindow(base::FakeWindow* /*window*/) {}

}  // namespace qen::test
