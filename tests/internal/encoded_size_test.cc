#include "internal/encoded_size.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vantiro {
namespace internal {
namespace {

// Whether `Kind` gives `size` for all values from `begin` up to `end`,
// multiples of four or one.
template <typename Kind>
bool AllHaveSize(uint64_t begin, uint64_t end, uint32_t size) {
  const Four expected = {size, size, size, size};
  Four differences = {};
  for (uint64_t i = begin; i < end; i += 4) {
    const auto value = static_cast<uint32_t>(i);
    const Four values = {value, value + 1, value + 2, value + 3};
    differences = differences | (ElementSizes<Kind>(values) ^ expected);
  }
  return !HasAnyBit(differences);
}

TEST(EncodedSize, OfEvery32BitValueIsThatOfItsVarint) {
  uint64_t begin = 0;
  for (uint32_t size = 1; size <= 5; ++size) {
    const uint64_t end = uint64_t{1} << std::min(7 * size, 32U);
    EXPECT_TRUE(AllHaveSize<UInt32Sizes>(begin, end, size)) << size;
    begin = end;
  }
  EXPECT_TRUE(AllHaveSize<Int32Sizes>(uint64_t{1} << 31, uint64_t{1} << 32, 10))
      << "negative values are extended to 64 bits";
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
