// Counts that were made the measure, and whether other counts are worse.

#ifndef VANTIRO_BENCH_BASELINE_H_
#define VANTIRO_BENCH_BASELINE_H_

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "bench/measurement.h"

namespace vantiro {
namespace bench {

// What instruction counts depend on, besides the project itself.
struct Environment {
  std::string architecture;
  std::string compiler;
  // The lite runtime, by its version and the build ID of the loaded library.
  std::string runtime;

  bool operator==(const Environment& other) const {
    return architecture == other.architecture && compiler == other.compiler &&
           runtime == other.runtime;
  }
};

Environment ThisEnvironment();

class Baseline {
 public:
  // The counts of the first variant.
  explicit Baseline(const std::vector<Measurement>& measurements);

  // Reads and writes bench/baseline.json.
  static Baseline Read();
  void Write() const;

  const Environment& environment() const { return environment_; }

  // By how much the count of a case has grown: 0.02 is 2 %. Nothing if the
  // case is not in the baseline.
  std::optional<double> InstructionGrowth(const Measurement& now) const;
  std::optional<double> AllocationGrowth(const Measurement& now) const;

 private:
  Baseline() = default;

  using Counts = std::map<std::string, uint64_t>;

  Environment environment_;
  Counts instructions_;
  Counts allocations_;
};

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_BASELINE_H_
