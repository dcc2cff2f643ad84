// Values in their order, in bounded memory.

#ifndef VANTIRO_TOOLS_PLOT_SERIES_H_
#define VANTIRO_TOOLS_PLOT_SERIES_H_

#include <cstddef>
#include <vector>

namespace vantiro {
namespace tools {

// Up to kMaxPoints values are a point each; of more, a point stands for as many
// successive values as are needed to have no more points than that.
class Series {
 public:
  static constexpr size_t kMaxPoints = 4096;

  struct Point {
    double Mean() const { return sum / static_cast<double>(count); }

    double minimum;
    double maximum;
    double sum;
    size_t count;
  };

  void Add(double value);

  size_t count() const { return count_; }
  const std::vector<Point>& points() const { return points_; }
  // These need a value.
  double Minimum() const;
  double Maximum() const;

 private:
  void Halve();

  size_t count_ = 0;
  size_t values_in_point_ = 1;
  std::vector<Point> points_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PLOT_SERIES_H_
