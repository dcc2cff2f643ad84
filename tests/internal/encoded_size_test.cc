#include "internal/encoded_size.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::RepeatedField;

// The size of `value` as a varint.
size_t VarintSize(uint64_t value) {
  size_t size = 1;
  for (; value >= 0x80; value >>= 7) ++size;
  return size;
}
size_t SizeOf(UInt32Sizes /*kind*/, uint32_t value) {
  return VarintSize(value);
}
size_t SizeOf(Int32Sizes /*kind*/, uint32_t value) {
  const auto extended = int64_t{static_cast<int32_t>(value)};
  return VarintSize(static_cast<uint64_t>(extended));
}
size_t SizeOf(SInt32Sizes /*kind*/, uint32_t value) {
  return VarintSize(value << 1 ^ ((value >> 31) != 0 ? ~0U : 0U));
}

using Random = std::independent_bits_engine<std::mt19937, 32, uint32_t>;

// Values of all sizes, many of them zero.
uint32_t AnyValue(Random* random) {
  const uint32_t value = (*random)();
  return (*random)() % 4 == 0 ? 0 : value >> (*random)() % 32;
}

template <typename Kind>
Four ElementExponents(uint32_t first) {
  return Exponents(
      Kind::ToVarints(Four{first, first + 1, first + 2, first + 3}));
}

// Whether `Kind` gives `size` for all values from `begin` up to `end`,
// multiples of eight.
template <typename Kind>
bool AllHaveSize(uint64_t begin, uint64_t end, uint16_t size) {
  constexpr int16_t kBias = SizeBias(0);
  const uint32_t expected = size | uint32_t{size} << 16;
  Four differences = {};
  for (uint64_t i = begin; i < end; i += 8) {
    const auto first = static_cast<uint32_t>(i);
    const Eight sizes = EncodedSizes<Kind>(
        Join(ElementExponents<Kind>(first), ElementExponents<Kind>(first + 4)),
        Eight{kBias, kBias, kBias, kBias, kBias, kBias, kBias, kBias});
    differences = differences | (LoadFour(&sizes) ^
                                 Four{expected, expected, expected, expected});
  }
  return !HasAnyBit(differences);
}

TEST(EncodedSize, OfEvery32BitValueIsThatOfItsVarint) {
  uint64_t begin = 8;
  for (uint16_t size = 1; size <= 5; ++size) {
    const uint64_t end = uint64_t{1} << std::min(7 * size, 32);
    EXPECT_TRUE(AllHaveSize<UInt32Sizes>(begin, end, size)) << size;
    begin = end;
  }
  EXPECT_TRUE(AllHaveSize<Int32Sizes>(uint64_t{1} << 31, uint64_t{1} << 32, 10))
      << "negative values are extended to 64 bits";
}

// Adjacent fields as in a class, with other members before them.
template <int kCount>
struct Fields {
  uint32_t others[3];
  std::array<uint32_t, static_cast<size_t>(kCount)> values;
};

template <typename Kind, int kOneByteTags, int kTwoByteTags>
void ExpectFieldSizes(Random* random) {
  constexpr int kCount = kOneByteTags + kTwoByteTags;
  for (int round = 0; round < 1000; ++round) {
    Fields<kCount> fields;
    for (uint32_t& other : fields.others) other = (*random)();
    size_t expected = 0;
    int one_byte_tags = kOneByteTags;
    for (uint32_t& value : fields.values) {
      value = AnyValue(random);
      const size_t tag_size = one_byte_tags-- > 0 ? 1 : 2;
      if (value != 0) expected += tag_size + SizeOf(Kind(), value);
    }
    FieldSizes sizes;
    sizes.Add<Kind, kOneByteTags, kTwoByteTags>(fields.values.data());
    ASSERT_EQ(sizes.Total(), expected)
        << kOneByteTags << " and " << kTwoByteTags;
  }
}

template <typename Kind>
void ExpectFieldSizesOfKind() {
  Random random(1);
  ExpectFieldSizes<Kind, 2, 0>(&random);
  ExpectFieldSizes<Kind, 1, 2>(&random);
  ExpectFieldSizes<Kind, 4, 0>(&random);
  ExpectFieldSizes<Kind, 3, 2>(&random);
  ExpectFieldSizes<Kind, 0, 7>(&random);
  ExpectFieldSizes<Kind, 8, 0>(&random);
  ExpectFieldSizes<Kind, 8, 1>(&random);
  ExpectFieldSizes<Kind, 11, 12>(&random);
}

TEST(EncodedSize, OfAdjacentFieldsCountsNothingBesideThem) {
  ExpectFieldSizesOfKind<UInt32Sizes>();
  ExpectFieldSizesOfKind<Int32Sizes>();
  ExpectFieldSizesOfKind<SInt32Sizes>();
}

TEST(EncodedSize, OfManyLargeFieldsFitsIntoItsSums) {
  static std::array<uint32_t, 4096> values;
  values.fill(~0U);
  FieldSizes sizes;
  sizes.Add<Int32Sizes, 0, 4096>(values.data());
  sizes.Add<UInt32Sizes, 0, 4096>(values.data());
  EXPECT_EQ(sizes.Total(), 4096U * (12 + 7));
}

template <typename Kind, typename T>
void ExpectPayloadSizes(size_t (*payload_size)(const RepeatedField<T>&)) {
  Random random(2);
  std::vector<int> counts = {4095, 4096, 4097, 20000};
  for (int count = 0; count < 40; ++count) counts.push_back(count);
  for (const int count : counts) {
    RepeatedField<T> field;
    RepeatedField<T> negative;
    size_t expected = 0;
    for (int i = 0; i < count; ++i) {
      const uint32_t value = AnyValue(&random);
      field.Add(static_cast<T>(value));
      expected += SizeOf(Kind(), value);
      negative.Add(static_cast<T>(~0U));
    }
    EXPECT_EQ(payload_size(field), expected) << count;
    EXPECT_EQ(payload_size(negative),
              static_cast<size_t>(count) * SizeOf(Kind(), ~0U))
        << count;
  }
}

TEST(EncodedSize, OfPackedRunsOfEveryLength) {
  ExpectPayloadSizes<UInt32Sizes, uint32_t>(&UInt32PayloadSize);
  ExpectPayloadSizes<Int32Sizes, int32_t>(&Int32PayloadSize);
  ExpectPayloadSizes<SInt32Sizes, int32_t>(&SInt32PayloadSize);
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
