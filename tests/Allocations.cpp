#include "Allocations.h"

#include <cstdlib>
#include <new>

thread_local int allocationsLeft = 0;
thread_local int allocationsMade = 0;
thread_local int livingAllocations = 0;

void* operator new(std::size_t size) {
  if (allocationsLeft > 0 && --allocationsLeft == 0) {
    throw std::bad_alloc();
  }
  void* memory = std::malloc(size > 0 ? size : 1);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  ++allocationsMade;
  ++livingAllocations;
  return memory;
}

void operator delete(void* memory) noexcept {
  livingAllocations -= memory != nullptr ? 1 : 0;
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }
