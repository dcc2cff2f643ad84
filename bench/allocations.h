// Counts what operator new gives. The whole program uses the operators that are
// defined here, its libraries too.

#ifndef VANTIRO_BENCH_ALLOCATIONS_H_
#define VANTIRO_BENCH_ALLOCATIONS_H_

#include <cstdint>

#include "bench/variant.h"

namespace vantiro {
namespace bench {

struct Allocations {
  uint64_t count;
  uint64_t size;
};

// What one run allocates.
Allocations CountAllocations(Work* work);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_ALLOCATIONS_H_
