#include "bench/gl_calls.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <string_view>

namespace qen::bench {
namespace {

// Stands in the place of one of the pointers that libepoxy calls OpenGL through.
template <auto kPointer>
struct Counted;
template <class Result, class... Arguments, Result (**kPointer)(Arguments...)>
struct Counted<kPointer> {
  static inline Result (*const finder)(Arguments...) = *kPointer;  // finds the function at its first call
  static inline Result (*real)(Arguments...) = nullptr;
  static inline std::uint64_t calls = 0;

  static Result Call(Arguments... arguments) {
    ++calls;
    return real(arguments...);
  }
  static void PutIn() {
    calls = 0;
    if (*kPointer == finder) return;
    real = *kPointer;
    *kPointer = &Call;
  }
  // False when the function was called for the first time, which is not counted.
  static bool TakeOut() {
    if (*kPointer == finder) return true;
    if (*kPointer != &Call) return false;
    *kPointer = real;
    return true;
  }
};

struct Function {
  std::string_view name;
  void (*putIn)();
  bool (*takeOut)();
  const std::uint64_t* calls;
};

// Of the host's devices, all that they refer to; the list is made from their library.
constexpr Function kFunctions[] = {
#define GL_FUNCTION(name) \
  {#name, Counted<&epoxy_##name>::PutIn, Counted<&epoxy_##name>::TakeOut, &Counted<&epoxy_##name>::calls},
#include <gl_functions.inc>
#undef GL_FUNCTION
};

}  // namespace

GlCalls CountGlCalls(const std::function<void()>& frame) {
  frame();  // makes what is kept
  bool complete = false;
  while (!complete) {
    for (const Function& function : kFunctions) function.putIn();
    frame();
    complete = true;
    for (const Function& function : kFunctions) complete = function.takeOut() && complete;
  }
  GlCalls sum;
  for (const Function& function : kFunctions) {
    sum.all += *function.calls;
    if (function.name.starts_with("glDraw") || function.name.starts_with("glMultiDraw")) sum.draws += *function.calls;
  }
  return sum;
}

}  // namespace qen::bench
