#include "tools/plot/histogram.h"

#include <algorithm>
#include <cstdio>

namespace vantiro {
namespace tools {
namespace {

std::vector<Bin> EmptyBins(const Distribution& distribution,
                           bool are_integers) {
  const double minimum = distribution.Minimum().ToDouble();
  const double maximum = distribution.Maximum().ToDouble();
  std::vector<Bin> bins;
  const bool are_few =
      are_integers && maximum - minimum < static_cast<double>(kMaxBins);
  if (are_few || minimum == maximum) {
    const auto count = static_cast<size_t>(maximum - minimum) + 1;
    for (size_t i = 0; i < count; ++i) {
      const double value = minimum + static_cast<double>(i);
      bins.push_back({ShortNumber(value), value, value + 1, 0, false});
    }
    return bins;
  }
  // Written so, since the difference of the two can be too large for a double.
  const auto limit = [&](size_t i) {
    const double part = static_cast<double>(i) / kMaxBins;
    return minimum * (1 - part) + maximum * part;
  };
  for (size_t i = 0; i < kMaxBins; ++i) {
    bins.push_back({ShortNumber(limit(i)) + " .. " + ShortNumber(limit(i + 1)),
                    limit(i), limit(i + 1), 0, true});
  }
  return bins;
}

}  // namespace

std::vector<Bin> MakeBins(const Distribution& distribution, bool are_integers) {
  if (distribution.count() == 0) return {};
  std::vector<Bin> bins = EmptyBins(distribution, are_integers);
  distribution.Visit([&bins](Number number, size_t count) {
    const auto bin =
        std::upper_bound(bins.begin(), bins.end(), number.ToDouble(),
                         [](double value, const Bin& candidate) {
                           return value < candidate.end;
                         });
    (bin == bins.end() ? bins.back() : *bin).count += count;
  });
  return bins;
}

std::string ShortNumber(double number) {
  char text[32];
  static_cast<void>(std::snprintf(text, sizeof(text), "%.6g", number));
  return text;
}

}  // namespace tools
}  // namespace vantiro
