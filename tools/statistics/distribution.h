// Minimum, median and maximum of any number of numbers in bounded memory.

#ifndef VANTIRO_TOOLS_STATISTICS_DISTRIBUTION_H_
#define VANTIRO_TOOLS_STATISTICS_DISTRIBUTION_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "tools/statistics/number.h"

namespace vantiro {
namespace tools {

// The result does not depend on the order in which numbers are added.
//
// Up to kMaxExact different numbers are kept as they are. Of more, only how
// many are in each of 128 intervals between a power of two and the next: the
// number in the middle of an interval differs by no more than kMaxError of
// itself from each in it. The numbers of 32-bit floats have at most 71,000 such
// intervals, and integers up to 256 one each.
class Distribution {
 public:
  static constexpr size_t kMaxExact = 4096;
  static constexpr double kMaxError = 1.0 / 256;

  explicit Distribution(Number::Kind kind) : kind_(kind) {}

  // `number` has the kind of the distribution.
  void Add(Number number);

  size_t count() const { return count_; }
  // Whether Median and the numbers of Visit are exact; Minimum and Maximum
  // always are.
  bool IsExact() const;

  // These need a number.
  Number Minimum() const { return {kind_, minimum_}; }
  Number Maximum() const { return {kind_, maximum_}; }
  // Of an even count, the mean of the two in the middle.
  Number Median() const;

  // Visits the numbers in ascending order, each with its count.
  void Visit(
      const std::function<void(Number number, size_t count)>& visit) const;

 private:
  struct Run {
    uint64_t rank;
    size_t count;
  };

  // Merges what was added with the runs, or with the intervals.
  void MergeAdded() const;
  void AddToInterval(const Run& run) const;
  Number Representative(uint64_t interval) const;

  Number::Kind kind_;
  size_t count_ = 0;
  uint64_t minimum_ = 0;
  uint64_t maximum_ = 0;
  // Ranks that were added and not merged yet.
  mutable std::vector<uint64_t> added_;
  // The different ranks in ascending order, as long as they are exact.
  mutable std::vector<Run> runs_;
  // By the most significant bits of the number's rank as a double.
  mutable std::map<uint64_t, size_t> intervals_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_STATISTICS_DISTRIBUTION_H_
