#include "tools/io/progress.h"

#include <gtest/gtest.h>

namespace vantiro {
namespace tools {
namespace {

TEST(ProgressLine, SaysWhatIsKnown) {
  EXPECT_EQ(ProgressLine({12, 3400000}, {40, 9700000}, 1.7),
            "[#######.............] 12 of 40 files, 3.4 of 9.7 MB, 2.0 MB/s, "
            "0:04 left");
  EXPECT_EQ(ProgressLine({0, 61000000}, {1, 6100000000}, 2),
            "[....................] 61.0 of 6100.0 MB, 30.5 MB/s, 3:18 left");
  // A pipe has no size.
  EXPECT_EQ(ProgressLine({1, 500000}, {2, 0}, 1),
            "[##########..........] 1 of 2 files, 0.5 MB, 0.5 MB/s");
  EXPECT_EQ(ProgressLine({0, 500000}, {1, 0}, 1), "0.5 MB, 0.5 MB/s");
  // A file that has grown.
  EXPECT_EQ(ProgressLine({1, 3000000}, {1, 2000000}, 1),
            "[####################] 3.0 of 2.0 MB, 3.0 MB/s");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
