// What is drawn stands for all values, however many there are.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "tools/plot/histogram.h"
#include "tools/plot/series.h"
#include "tools/plot/terminal_plot.h"

namespace vantiro {
namespace tools {
namespace {

TEST(Series, PointsHaveTheValuesInTheirOrder) {
  std::mt19937 random(1);
  for (const size_t count : {1U, 4096U, 4097U, 8193U, 30000U}) {
    std::vector<double> values(count);
    Series series;
    for (double& value : values) {
      value = static_cast<double>(random() % 1000);
      series.Add(value);
    }
    EXPECT_EQ(series.count(), count);
    EXPECT_LE(series.points().size(), Series::kMaxPoints);
    EXPECT_GE(2 * series.points().size(), std::min(count, Series::kMaxPoints));
    auto value = values.begin();
    for (const Series::Point& point : series.points()) {
      const auto end = value + static_cast<ptrdiff_t>(point.count);
      ASSERT_LE(end, values.end());
      EXPECT_EQ(point.minimum, *std::min_element(value, end));
      EXPECT_EQ(point.maximum, *std::max_element(value, end));
      EXPECT_EQ(point.sum, std::accumulate(value, end, 0.0));
      value = end;
    }
    EXPECT_EQ(value, values.end());
    EXPECT_EQ(series.Minimum(),
              *std::min_element(values.begin(), values.end()));
    EXPECT_EQ(series.Maximum(),
              *std::max_element(values.begin(), values.end()));
  }
}

TEST(Histogram, CountsEachValueOnce) {
  std::mt19937 random(2);
  for (const double scale : {1e-3, 1.0, 3.0, 1e30}) {
    for (const bool are_integers : {false, true}) {
      std::vector<double> values(3000);
      Distribution distribution(Number::kFloating);
      for (double& value : values) {
        value = static_cast<double>(random() % 1000) / 100 * scale;
        if (are_integers) value = std::floor(value);
        distribution.Add(Number::Of(value));
      }
      const std::vector<Bin> bins = MakeBins(distribution, are_integers);
      EXPECT_LE(bins.size(), kMaxBins);
      for (const Bin& bin : bins) {
        const bool is_last = &bin == &bins.back();
        const auto expected =
            std::count_if(values.begin(), values.end(), [&](double value) {
              return value >= bin.begin && (value < bin.end || is_last);
            });
        EXPECT_EQ(bin.count, static_cast<size_t>(expected)) << bin.label;
      }
    }
  }
  EXPECT_TRUE(MakeBins(Distribution(Number::kFloating), true).empty());
}

// Also the largest floats and single values, on terminals of any width.
TEST(TerminalPlot, HasLinesOfTheWidth) {
  for (const std::vector<double>& values : {std::vector<double>{5},
                                            {3e30},
                                            {3.4e38, -3.4e38},
                                            {0, 0, 0},
                                            {1, 2, 1e-40}}) {
    Series series;
    Distribution distribution(Number::kFloating);
    for (const double value : values) {
      series.Add(value);
      distribution.Add(Number::Of(value));
    }
    for (const size_t width : {1U, 30U, 80U, 200U}) {
      const TerminalOptions options = {width, true};
      std::string text = TerminalSeries(series, options);
      text += TerminalHistogram(MakeBins(distribution, false), options);
      EXPECT_NE(text.find('*'), std::string::npos);
      EXPECT_NE(text.find('#'), std::string::npos);
      size_t longest = 0;
      for (size_t at = 0; at < text.size();) {
        const size_t end = text.find('\n', at);
        longest = std::max(longest, end - at);
        at = end + 1;
      }
      EXPECT_LE(longest, std::max<size_t>(width, 60));
    }
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
