#include "tests/fuzz/counted_memory.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<size_t> held{0};
std::atomic<size_t> most{0};
std::atomic<size_t> before{0};

void* take(size_t size) {
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (!memory) throw std::bad_alloc();
  const size_t now = held += ::malloc_usable_size(memory);
  if (now > most) most = now;
  return memory;
}

void give_back(void* memory) {
  if (memory) held -= ::malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

namespace counted_memory {

void start() {
  before = held.load();
  most = held.load();
}

size_t peak() { return most - std::min(most.load(), before.load()); }

}  // namespace counted_memory

void* operator new(size_t size) { return take(size); }
void* operator new[](size_t size) { return take(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  try {
    return take(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* memory) noexcept { give_back(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { give_back(memory); }
void operator delete[](void* memory) noexcept { give_back(memory); }
void operator delete(void* memory, size_t) noexcept { give_back(memory); }
void operator delete[](void* memory, size_t) noexcept { give_back(memory); }
