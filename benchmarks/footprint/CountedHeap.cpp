#include "CountedHeap.h"

#include <malloc.h>

#include <algorithm>

std::size_t held = 0;
std::size_t peak = 0;

namespace {

std::size_t CostOf(void* block) {
  return block != nullptr ? malloc_usable_size(block) + sizeof(std::size_t) : 0;
}

void* Add(void* block) {
  held += CostOf(block);
  peak = std::max(peak, held);
  return block;
}

}  // namespace

extern "C" {

void* __libc_malloc(std::size_t size);                 // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t n, std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* block, std::size_t size);   // NOLINT(bugprone-reserved-identifier)
void __libc_free(void* block);                         // NOLINT(bugprone-reserved-identifier)

void* malloc(std::size_t size) { return Add(__libc_malloc(size)); }

void* calloc(std::size_t n, std::size_t size) { return Add(__libc_calloc(n, size)); }

void* realloc(void* block, std::size_t size) {
  held -= CostOf(block);
  return Add(__libc_realloc(block, size));
}

void free(void* block) {
  held -= CostOf(block);
  __libc_free(block);
}

}  // extern "C"
