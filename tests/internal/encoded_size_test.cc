#include "internal/encoded_size.h"

#include <google/protobuf/wire_format_lite.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::RepeatedField;
using google::protobuf::internal::WireFormatLite;

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

TEST(EncodedSize, OfSignedValuesIsTheRuntimes) {
  for (int bit = 0; bit < 32; ++bit) {
    const uint32_t edge = uint32_t{1} << bit;
    const Four values = {edge - 1, edge, ~edge, ~edge + 1};
    const Four sizes = ElementSizes<Int32Sizes>(values);
    const Four zigzag_sizes = ElementSizes<SInt32Sizes>(values);
    for (int i = 0; i < 4; ++i) {
      const auto value = static_cast<int32_t>(values[i]);
      EXPECT_EQ(sizes[i], WireFormatLite::Int32Size(value)) << value;
      EXPECT_EQ(zigzag_sizes[i], WireFormatLite::SInt32Size(value)) << value;
    }
  }
}

TEST(EncodedSize, SkipsZerosAndNegativeZeroButNoNan) {
  constexpr uint32_t kNegativeZero = 0x80000000;
  constexpr uint32_t kNan = 0xffc00001;
  const Four floats = FloatSizes::IsSkipped(Four{0, kNegativeZero, kNan, 1});
  EXPECT_EQ(floats[0], ~0U);
  EXPECT_EQ(floats[1], ~0U);
  EXPECT_EQ(floats[2], 0U);
  EXPECT_EQ(floats[3], 0U);
  const Four integers = Int32Sizes::IsSkipped(Four{0, kNegativeZero, kNan, 1});
  EXPECT_EQ(integers[0], ~0U);
  EXPECT_EQ(integers[1], 0U);
}

uint32_t RandomValue(std::mt19937* random) {
  const auto bits = static_cast<uint32_t>((*random)());
  return bits % 3 == 0 ? 0 : bits >> (*random)() % 32;
}

// What stands before the fields must not count, whatever it is.
template <int kOneByteTags, int kTwoByteTags>
void ExpectSizesOfRuns(std::mt19937* random) {
  constexpr int kCount = kOneByteTags + kTwoByteTags;
  uint32_t values[size_t{4 + kCount}];
  bool bools[size_t{8 + kCount}];
  for (uint32_t& value : values) value = RandomValue(random);
  for (bool& value : bools) value = (*random)() % 2 == 0;
  size_t expected = 0;
  size_t expected_bools = 0;
  for (int i = 0; i < kCount; ++i) {
    const size_t tag_size = i < kOneByteTags ? 1 : 2;
    const auto value = static_cast<int32_t>(values[4 + i]);
    if (value != 0) expected += tag_size + WireFormatLite::SInt32Size(value);
    if (bools[8 + i]) expected_bools += tag_size + 1;
  }
  FieldSizes sizes;
  sizes.Add<SInt32Sizes, kOneByteTags, kTwoByteTags>(values + 4);
  EXPECT_EQ(sizes.Total(), expected) << kOneByteTags << "+" << kTwoByteTags;
  EXPECT_EQ((BoolFieldsSize<kOneByteTags, kTwoByteTags>(bools + 8)),
            expected_bools)
      << kOneByteTags << "+" << kTwoByteTags;
}

TEST(EncodedSize, OfFieldsSideBySideIsTheirSum) {
  std::mt19937 random(1);
  for (int i = 0; i < 1000; ++i) {
    ExpectSizesOfRuns<1, 0>(&random);
    ExpectSizesOfRuns<0, 2>(&random);
    ExpectSizesOfRuns<1, 2>(&random);
    ExpectSizesOfRuns<4, 0>(&random);
    ExpectSizesOfRuns<3, 5>(&random);
    ExpectSizesOfRuns<9, 0>(&random);
    ExpectSizesOfRuns<15, 16>(&random);
    ExpectSizesOfRuns<2, 21>(&random);
  }
}

TEST(EncodedSize, OfPackedPayloadsIsTheRuntimes) {
  std::mt19937 random(1);
  for (int count = 0; count < 70; ++count) {
    RepeatedField<uint32_t> values;
    RepeatedField<int32_t> signed_values;
    for (int i = 0; i < count; ++i) {
      values.Add(RandomValue(&random));
      signed_values.Add(static_cast<int32_t>(RandomValue(&random)));
    }
    EXPECT_EQ(UInt32PayloadSize(values), WireFormatLite::UInt32Size(values));
    EXPECT_EQ(Int32PayloadSize(signed_values),
              WireFormatLite::Int32Size(signed_values));
    EXPECT_EQ(SInt32PayloadSize(signed_values),
              WireFormatLite::SInt32Size(signed_values));
  }
}

TEST(EncodedSize, WithLengthCountsTheLengthsOwnBytes) {
  for (const size_t edge : {0x80U, 0x4000U, 0x200000U, 0x10000000U}) {
    for (const size_t size : {edge - 1, edge}) {
      EXPECT_EQ(WithLength(size), WireFormatLite::LengthDelimitedSize(size));
    }
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
