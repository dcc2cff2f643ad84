// What was measured, whatever the unit.

#ifndef VANTIRO_BENCH_MEASUREMENT_H_
#define VANTIRO_BENCH_MEASUREMENT_H_

#include <cstddef>
#include <string>
#include <vector>

#include "bench/allocations.h"
#include "bench/variants.h"
#include "bench/workloads.h"

namespace vantiro {
namespace bench {

// What one run of a case costs a variant.
struct Cost {
  // Nanoseconds or instructions.
  double value;
  Allocations allocations;
};

struct Measurement {
  Case measured;
  // Of the records, serialised.
  size_t size;
  // In the order of the variants.
  std::vector<Cost> costs;
  // Nanoseconds; 0 where instructions are counted.
  double memcpy_time;
};

// The geometric mean of the ratio of a variant's costs to those of another one,
// over all workloads of the operation but the mix.
double MeanRatio(const std::vector<Measurement>& measurements,
                 const std::string& operation, size_t variant, size_t to);

// Measures all cases that AllCases names, the costs in nanoseconds. Throws if
// the variants write different bytes.
std::vector<Measurement> MeasureTimes(const std::vector<BuiltVariant>& variants,
                                      const std::string& operation,
                                      const std::string& workload, int batches);

// The same, the costs in instructions.
std::vector<Measurement> MeasureInstructions(
    const std::vector<BuiltVariant>& variants, const std::string& operation,
    const std::string& workload);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_MEASUREMENT_H_
