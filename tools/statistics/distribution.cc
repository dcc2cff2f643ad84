#include "tools/statistics/distribution.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantiro {
namespace tools {
namespace {

// Of the 52 bits of a double's fraction, seven choose the interval.
constexpr int kIntervalShift = 52 - 7;

// So many numbers are merged at a time.
constexpr size_t kMaxAdded = 1024;

}  // namespace

void Distribution::Add(Number number) {
  const uint64_t rank = number.rank();
  minimum_ = count_ == 0 ? rank : std::min(minimum_, rank);
  maximum_ = count_ == 0 ? rank : std::max(maximum_, rank);
  ++count_;
  added_.push_back(rank);
  if (added_.size() == kMaxAdded) MergeAdded();
}

void Distribution::MergeAdded() const {
  std::sort(added_.begin(), added_.end());
  std::vector<Run> merged;
  size_t next = 0;
  for (const uint64_t rank : added_) {
    while (next < runs_.size() && runs_[next].rank <= rank) {
      merged.push_back(runs_[next++]);
    }
    if (merged.empty() || merged.back().rank != rank) {
      merged.push_back({rank, 0});
    }
    ++merged.back().count;
  }
  while (next < runs_.size()) merged.push_back(runs_[next++]);
  added_.clear();
  if (intervals_.empty() && merged.size() <= kMaxExact) {
    runs_ = std::move(merged);
    return;
  }
  for (const Run& run : merged) AddToInterval(run);
  runs_.clear();
}

void Distribution::AddToInterval(const Run& run) const {
  const double value = Number(kind_, run.rank).ToDouble();
  intervals_[RankOfDouble(value) >> kIntervalShift] += run.count;
}

bool Distribution::IsExact() const {
  MergeAdded();
  return intervals_.empty();
}

Number Distribution::Representative(uint64_t interval) const {
  const uint64_t half = uint64_t{1} << (kIntervalShift - 1);
  double middle = DoubleOfRank((interval << kIntervalShift) | half);
  if (kind_ != Number::kFloating) middle = std::trunc(middle);
  // Also where the interval is that of infinity.
  middle = std::max(middle, Minimum().ToDouble());
  if (!(middle <= Maximum().ToDouble())) middle = Maximum().ToDouble();
  return Number::Of(middle);
}

Number Distribution::Median() const {
  // The index of the first of the two in the middle, which can be the same.
  const size_t first = (count_ - 1) / 2;
  const size_t second = count_ / 2;
  size_t seen = 0;
  Number low = Minimum();
  Number high = low;
  Visit([&](Number number, size_t count) {
    if (seen <= first && first < seen + count) low = number;
    if (seen <= second && second < seen + count) high = number;
    seen += count;
  });
  if (low.rank() == high.rank()) return low;
  const double a = low.ToDouble();
  const double b = high.ToDouble();
  // There is no mean of both infinities.
  if (std::isinf(a)) return low;
  const double mean = a + (b - a) / 2;
  // The mean of floats as a float, since it has no more digits that count.
  return Number::Of(
      kind_ == Number::kFloating ? double{static_cast<float>(mean)} : mean);
}

void Distribution::Visit(
    const std::function<void(Number number, size_t count)>& visit) const {
  MergeAdded();
  for (const auto& [interval, count] : intervals_) {
    visit(Representative(interval), count);
  }
  for (const Run& run : runs_) visit({kind_, run.rank}, run.count);
}

}  // namespace tools
}  // namespace vantiro
