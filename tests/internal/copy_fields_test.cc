#include "internal/copy_fields.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace vantiro {
namespace internal {
namespace {

template <size_t kCount>
std::string BytesOf(const float (&floats)[kCount]) {
  return {reinterpret_cast<const char*>(floats), sizeof(floats)};
}

template <int kCount>
void ExpectNegativeZerosDropped(std::mt19937* random) {
  const float values[] = {0.0F,
                          -0.0F,
                          1.0F,
                          -1.0F,
                          std::numeric_limits<float>::quiet_NaN(),
                          -std::numeric_limits<float>::denorm_min()};
  float floats[size_t{kCount + 2}];
  float before[size_t{kCount + 2}];
  for (float& value : floats) value = values[(*random)() % 6];
  // What is next to them stays.
  floats[0] = -0.0F;
  floats[kCount + 1] = -0.0F;
  std::memcpy(before, floats, sizeof(before));
  for (int i = 1; i <= kCount; ++i) {
    if (before[i] == 0) before[i] = 0;
  }
  DropNegativeZeros<kCount>(floats + 1);
  EXPECT_EQ(BytesOf(floats), BytesOf(before)) << kCount;
}

TEST(CopyFields, DropsNegativeZerosAndNothingElse) {
  std::mt19937 random(1);
  for (int i = 0; i < 200; ++i) {
    ExpectNegativeZerosDropped<1>(&random);
    ExpectNegativeZerosDropped<3>(&random);
    ExpectNegativeZerosDropped<4>(&random);
    ExpectNegativeZerosDropped<5>(&random);
    ExpectNegativeZerosDropped<11>(&random);
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
