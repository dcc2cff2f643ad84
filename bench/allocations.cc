#include "bench/allocations.h"

#include <cstdlib>
#include <new>

namespace {

bool is_counting = false;
vantiro::bench::Allocations counted = {0, 0};

}  // namespace

void* operator new(size_t size) {
  if (is_counting) {
    ++counted.count;
    counted.size += size;
  }
  void* const space = std::malloc(size);
  if (space == nullptr) std::abort();
  return space;
}

void operator delete(void* space) noexcept { std::free(space); }
void operator delete(void* space, size_t /*size*/) noexcept {
  std::free(space);
}

namespace vantiro {
namespace bench {

Allocations CountAllocations(Work* work) {
  work->Run(1);
  counted = {0, 0};
  is_counting = true;
  work->Run(1);
  is_counting = false;
  return counted;
}

}  // namespace bench
}  // namespace vantiro
