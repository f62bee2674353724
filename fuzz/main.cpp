// The door through which libFuzzer tries inputs.
#include <cstddef>

#include "fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  qen::fuzz::Try({bytes, size});
  return 0;
}
