// Counts what this program allocates through operator new, and lets it fail.
// allocations.cc belongs to a program's own sources: it replaces the operator.

#ifndef VANTIRO_TESTS_SUPPORT_ALLOCATIONS_H_
#define VANTIRO_TESTS_SUPPORT_ALLOCATIONS_H_

#include <cstddef>

namespace vantiro {
namespace tests {

int AllocationCount();
// Those not freed yet.
int LiveAllocationCount();

// The bytes that are allocated, with what the allocator adds to round up.
size_t HeldBytes();
// The most that was held since the last ResetPeak.
size_t PeakBytes();
void ResetPeak();

// While it lives, the `count`th allocation from its construction on and all
// later ones throw std::bad_alloc.
class FailingAllocations {
 public:
  explicit FailingAllocations(int count);
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
};

// How many allocations `work` makes.
template <typename Work>
int AllocationsOf(const Work& work) {
  const int before = AllocationCount();
  work();
  return AllocationCount() - before;
}

// How many bytes `work` holds at its worst moment beyond those held before.
template <typename Work>
size_t PeakOf(const Work& work) {
  const size_t before = HeldBytes();
  ResetPeak();
  work();
  return PeakBytes() - before;
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_ALLOCATIONS_H_
