#include "Allocations.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

thread_local int allocationsLeft = 0;
thread_local int allocationsMade = 0;
thread_local int livingAllocations = 0;
thread_local std::ptrdiff_t livingBytes = 0;

void* operator new(std::size_t size) {
  const bool fails = allocationsLeft > 0 && --allocationsLeft == 0;
  void* memory = fails ? nullptr : std::malloc(size > 0 ? size : 1);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  ++allocationsMade;
  ++livingAllocations;
  livingBytes += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  return memory;
}

void operator delete(void* memory) noexcept {
  livingAllocations -= memory != nullptr ? 1 : 0;
  livingBytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }
