// Counts what is taken from the heap.
#include <cstddef>
#include <cstdlib>
#include <new>

namespace qen::test {

extern std::size_t allocations;
std::size_t allocations = 0;

}  // namespace qen::test

void* operator new(std::size_t size, std::align_val_t alignment) {
  ++qen::test::allocations;
  const auto unit = static_cast<std::size_t>(alignment);
  void* memory = std::aligned_alloc(unit, (size + unit) / unit * unit);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new(std::size_t size) { return operator new(size, std::align_val_t(alignof(std::max_align_t))); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
