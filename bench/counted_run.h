// What the program `bench` and the one that it starts under callgrind agree on.

#ifndef VANTIRO_BENCH_COUNTED_RUN_H_
#define VANTIRO_BENCH_COUNTED_RUN_H_

#include <string>

#include "bench/workloads.h"

namespace vantiro {
namespace bench {

// How often a case is run while its instructions are counted.
constexpr int kCountedRuns = 8;

// What the profile of a case is called.
inline std::string CountName(const std::string& variant, const Case& measured) {
  return variant + "/" + measured.operation + "/" + measured.workload.name;
}

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_COUNTED_RUN_H_
