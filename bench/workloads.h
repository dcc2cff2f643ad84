// What is measured: records, and the operations that make sense for them.

#ifndef VANTIRO_BENCH_WORKLOADS_H_
#define VANTIRO_BENCH_WORKLOADS_H_

#include <string>
#include <vector>

#include "bench/variant.h"

namespace vantiro {
namespace bench {

struct Workload {
  std::string name;
  std::vector<Record> records;
};

// One line of the tables.
struct Case {
  std::string operation;
  Workload workload;
};

// All lines in their order, grouped by operation, as far as the names of
// operation and workload hold these strings.
std::vector<Case> AllCases(const Variant& variant, const std::string& operation,
                           const std::string& workload);

// The mix of all roots is a workload apart: it is not part of a mean.
bool IsMix(const Workload& workload);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_WORKLOADS_H_
