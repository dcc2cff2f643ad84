#include "tools/plot/series.h"

#include <algorithm>

namespace vantiro {
namespace tools {
namespace {

Series::Point Merged(const Series::Point& a, const Series::Point& b) {
  return {std::min(a.minimum, b.minimum), std::max(a.maximum, b.maximum),
          a.sum + b.sum, a.count + b.count};
}

}  // namespace

void Series::Add(double value) {
  const Point point = {value, value, value, 1};
  if (count_++ % values_in_point_ != 0) {
    points_.back() = Merged(points_.back(), point);
    return;
  }
  if (points_.size() == kMaxPoints) Halve();
  points_.push_back(point);
}

void Series::Halve() {
  for (size_t i = 0; i < points_.size() / 2; ++i) {
    points_[i] = Merged(points_[2 * i], points_[2 * i + 1]);
  }
  points_.resize(points_.size() / 2);
  values_in_point_ *= 2;
}

double Series::Minimum() const {
  return std::min_element(points_.begin(), points_.end(),
                          [](const Point& a, const Point& b) {
                            return a.minimum < b.minimum;
                          })
      ->minimum;
}

double Series::Maximum() const {
  return std::max_element(points_.begin(), points_.end(),
                          [](const Point& a, const Point& b) {
                            return a.maximum < b.maximum;
                          })
      ->maximum;
}

}  // namespace tools
}  // namespace vantiro
