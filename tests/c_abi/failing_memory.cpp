#include "tests/c_abi/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

constexpr int endless = -1;
std::atomic<int> left{endless};

void* take(size_t size) {
  const int now = left;
  if (now == 0) throw std::bad_alloc();
  if (now != endless) left = now - 1;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

}  // namespace

namespace failing_memory {

After::After(int pieces) { left = pieces; }
After::~After() { left = endless; }

}  // namespace failing_memory

void* operator new(size_t size) { return take(size); }
void* operator new[](size_t size) { return take(size); }
// What the standard library's algorithms ask for when they can do without.
void* operator new(size_t size, const std::nothrow_t&) noexcept { return std::malloc(size == 0 ? 1 : size); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, size_t) noexcept { std::free(memory); }
