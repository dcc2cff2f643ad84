// How many values are in each interval.

#ifndef VANTIRO_TOOLS_PLOT_HISTOGRAM_H_
#define VANTIRO_TOOLS_PLOT_HISTOGRAM_H_

#include <cstddef>
#include <string>
#include <vector>

#include "tools/statistics/distribution.h"

namespace vantiro {
namespace tools {

struct Bin {
  // The number, or the range.
  std::string label;
  double begin;
  double end;
  size_t count;
  bool is_range;
};

// Integers in a range of no more than kMaxBins have a bin each; other numbers
// are in kMaxBins bins of equal width, the last one with its end. Without
// numbers there is no bin.
constexpr size_t kMaxBins = 20;
std::vector<Bin> MakeBins(const Distribution& distribution, bool are_integers);

// With six digits: "0.25", "1e+09".
std::string ShortNumber(double number);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PLOT_HISTOGRAM_H_
