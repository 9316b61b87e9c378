// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/ppd/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

std::atomic<std::int64_t> made = 0;
std::atomic<std::int64_t> alive = 0;
std::atomic<std::int64_t> bytes = 0;

}  // namespace

void* operator new(std::size_t size) {
  void* block = std::malloc(size != 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  ++made;
  ++alive;
  bytes += static_cast<std::int64_t>(malloc_usable_size(block));
  return block;
}

void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  --alive;
  bytes -= static_cast<std::int64_t>(malloc_usable_size(block));
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  operator delete(block);
}

namespace publishing::test {

std::int64_t madeAllocations() {
  return made;
}

std::int64_t liveAllocations() {
  return alive;
}

std::int64_t liveBytes() {
  return bytes;
}

}  // namespace publishing::test
