// Times of the same work done by several variants.

#ifndef VANTIRO_BENCH_TIMING_H_
#define VANTIRO_BENCH_TIMING_H_

#include <cstddef>
#include <memory>
#include <vector>

#include "bench/variant.h"

namespace vantiro {
namespace bench {

// The nanoseconds that each takes at best. They are run in turns, in so many
// short batches, so that whatever slows the machine down meets all of them.
std::vector<double> LeastTimes(const std::vector<std::unique_ptr<Work>>& works,
                               int batches);

// The nanoseconds that memcpy of so many bytes takes at best.
double TimeOfMemcpy(size_t size, int batches);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_TIMING_H_
