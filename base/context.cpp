#include "base/context.h"

namespace qen::base {
namespace {

constinit Context* current = nullptr;

}  // namespace

Context::Context(const Backends& given)
    : backends(given),
      clock(given.clock == nullptr ? static_cast<ITimer&>(systemClock) : *given.clock),
      timer(clock),
      files(given.files, log),
      render(given.render),
      fonts(given.fonts, log),
      textures(*this),
      sounds(given.sound, given.files, log),
      ime(*this),
      scenes(*this) {}

Context* CurrentContext() { return current; }
void SetCurrentContext(Context* context) { current = context; }

}  // namespace qen::base
