#include "tests/allocation/counting_new.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;

void* Allocate(std::size_t size, std::size_t alignment) {
  ++count;
  const std::size_t rounded = (size + alignment - 1) / alignment * alignment;
  void* memory = alignment > alignof(std::max_align_t) ? std::aligned_alloc(alignment, rounded) : std::malloc(size + 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

namespace qen::test {

std::size_t AllocationCount() { return count; }

}  // namespace qen::test

void* operator new(std::size_t size) { return Allocate(size, 1); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
