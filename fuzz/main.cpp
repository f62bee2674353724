// The door through which libFuzzer tries inputs, and what the sanitizers look for, so that a finding shows itself again
// without settings from outside.
#include <cstddef>

#include "fuzz/target.h"

extern "C" {

const char* __asan_default_options() { return "detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1"; }

const char* __ubsan_default_options() { return "print_stacktrace=1"; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  qen::fuzz::Try({bytes, size});
  return 0;
}
}
