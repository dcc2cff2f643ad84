#include "tests/support/allocations.h"

#include <malloc.h>

#include <atomic>
#include <climits>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int> allocation_count{0};
std::atomic<int> live_count{0};
std::atomic<size_t> held_bytes{0};
std::atomic<size_t> peak_bytes{0};
// The first allocation that fails, by its place in allocation_count.
std::atomic<int> first_failure{INT_MAX};

void NotePeak(size_t held) {
  size_t peak = peak_bytes;
  while (held > peak && !peak_bytes.compare_exchange_weak(peak, held)) {
  }
}

void Free(void* memory) {
  if (memory == nullptr) return;
  --live_count;
  held_bytes -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

void* operator new(size_t size) {
  if (allocation_count + 1 >= first_failure) throw std::bad_alloc();
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) std::abort();
  ++allocation_count;
  ++live_count;
  NotePeak(held_bytes += malloc_usable_size(memory));
  return memory;
}

void operator delete(void* memory) noexcept { Free(memory); }
void operator delete(void* memory, size_t /*size*/) noexcept { Free(memory); }

namespace vantiro {
namespace tests {

int AllocationCount() { return allocation_count; }
int LiveAllocationCount() { return live_count; }

size_t HeldBytes() { return held_bytes; }
size_t PeakBytes() { return peak_bytes; }
void ResetPeak() { peak_bytes = held_bytes.load(); }

FailingAllocations::FailingAllocations(int count) {
  first_failure = allocation_count + count;
}
FailingAllocations::~FailingAllocations() { first_failure = INT_MAX; }

}  // namespace tests
}  // namespace vantiro
