#include "tests/Publishing/ppd/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> alive = 0;

}  // namespace

void* operator new(std::size_t size) {
  void* block = std::malloc(size != 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  ++alive;
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) --alive;
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  operator delete(block);
}

namespace publishing::test {

std::int64_t liveAllocations() {
  return alive;
}

}  // namespace publishing::test
