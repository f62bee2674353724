// Counts every allocation of the program and of the libraries it loads.
#pragma once

#include <cstddef>

namespace qen::test {

std::size_t AllocationCount();

}  // namespace qen::test
