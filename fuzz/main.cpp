// The door through which libFuzzer tries inputs, and what the sanitizers look for, so that a finding shows itself again
// without settings from outside.
#include <cstddef>

#include "fuzz/target.h"

extern "C" {

// Less than by default, for speed: uses of a frame that has ended are what the tests look for, and who allocated what
// tells a replay with ASAN_OPTIONS=malloc_context_size=30.
const char* __asan_default_options() {
  return "detect_leaks=1:strict_string_checks=1:intercept_tls_get_addr=0:quarantine_size_mb=4:malloc_context_size=1";
}

const char* __ubsan_default_options() { return "print_stacktrace=1"; }

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  qen::fuzz::Try({bytes, size});
  return 0;
}
}
