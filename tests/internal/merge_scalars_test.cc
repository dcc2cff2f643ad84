#include "internal/merge_scalars.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

template <typename T>
std::string BytesOf(const std::vector<T>& values) {
  return {reinterpret_cast<const char*>(values.data()),
          values.size() * sizeof(T)};
}

// What is next to the fields stays.
template <int kCount, typename T>
void ExpectMerged(const std::vector<T>& values, std::mt19937* random) {
  const auto fill = [&] {
    std::vector<T> result(size_t{kCount + 2});
    for (T& value : result) value = values[(*random)() % values.size()];
    return result;
  };
  const std::vector<T> from = fill();
  std::vector<T> to = fill();
  std::vector<T> expected = to;
  for (size_t i = 1; i <= size_t{kCount}; ++i) {
    if (from[i] != 0) expected[i] = from[i];
  }
  MergeScalars<kCount>(from.data() + 1, to.data() + 1);
  EXPECT_EQ(BytesOf(to), BytesOf(expected)) << kCount;
}

template <typename T>
void ExpectMergedInAnyCount(const std::vector<T>& values) {
  std::mt19937 random(1);
  for (int i = 0; i < 200; ++i) {
    ExpectMerged<2>(values, &random);
    ExpectMerged<3>(values, &random);
    ExpectMerged<4>(values, &random);
    ExpectMerged<5>(values, &random);
    ExpectMerged<11>(values, &random);
  }
}

TEST(MergeScalars, TakesWhatIsNotZeroAndLeavesTheRest) {
  ExpectMergedInAnyCount<float>({0.0F, -0.0F, 1.0F,
                                 -std::numeric_limits<float>::quiet_NaN(),
                                 std::numeric_limits<float>::denorm_min()});
  ExpectMergedInAnyCount<uint32_t>({0, 1, 0x80000000, UINT32_MAX});
  ExpectMergedInAnyCount<int32_t>({0, 1, INT32_MIN, -1});
}

TEST(MergeScalars, SetsBools) {
  const bool from[] = {true, false, true, false, true};
  bool to[] = {false, false, true, true, false};
  MergeScalars<3>(from + 1, to + 1);
  const bool expected[] = {false, false, true, true, false};
  EXPECT_EQ(std::memcmp(to, expected, sizeof(to)), 0);
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
