// Adjacent floats that are sized, written, merged and copied together, in every
// pattern of values that are written and values that are not.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "internal/copy_fields.h"
#include "internal/encoded_size.h"
#include "internal/merge_scalars.h"
#include "internal/write_scalar.h"

namespace vantiro {
namespace internal {
namespace {

constexpr float kValues[] = {0.0F, -0.0F, 1.5F,
                             std::numeric_limits<float>::quiet_NaN()};

uint32_t Bits(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits;
}

// Field numbers from 13 on, so that tags of two bytes follow those of one.
constexpr uint32_t kFirstTag = 13 << 3 | 5;

template <typename Floats>
std::string WriteOneByOne(const Floats& values) {
  std::string bytes;
  uint32_t tag = kFirstTag;
  for (const float value : values) {
    if (value != 0) {
      if (tag >= 0x80) bytes += static_cast<char>((tag & 0x7f) | 0x80);
      bytes += static_cast<char>(tag < 0x80 ? tag : tag >> 7);
      bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
    }
    tag += 8;
  }
  return bytes;
}

template <int kCount>
struct Record {
  uint32_t others[3] = {1, 2, 3};
  std::array<float, static_cast<size_t>(kCount)> values = {};
};

template <int kCount>
void ExpectSizeAndBytes(const Record<kCount>& record) {
  const std::string expected = WriteOneByOne(record.values);
  FieldSizes sizes;
  sizes.Add<FloatSizes, 3, kCount - 3>(record.values.data());
  ASSERT_EQ(sizes.Total(), expected.size());
  uint8_t buffer[static_cast<size_t>(6 * kCount + kWriteOverrun)];
  const uint8_t* const end =
      WriteFloatFields<kFirstTag, kCount>(buffer, record.values.data());
  ASSERT_EQ(std::string(static_cast<const uint8_t*>(buffer), end), expected);
}

template <int kCount>
void ExpectMerge(const Record<kCount>& record) {
  Record<kCount> before;
  for (size_t i = 0; i < kCount; i += 2) before.values[i] = -0.0F;
  Record<kCount> target = before;
  MergeScalars<kCount>(record.values.data(), target.values.data());
  for (size_t i = 0; i < kCount; ++i) {
    const float expected =
        record.values[i] == 0 ? before.values[i] : record.values[i];
    ASSERT_EQ(Bits(target.values[i]), Bits(expected)) << i;
  }
  ASSERT_EQ(std::memcmp(target.others, before.others, sizeof(before.others)),
            0);
}

template <int kCount>
void ExpectCopy(const Record<kCount>& record) {
  Record<kCount> copy = record;
  DropNegativeZeros<kCount>(copy.values.data());
  for (size_t i = 0; i < kCount; ++i) {
    const float value = record.values[i];
    ASSERT_EQ(Bits(copy.values[i]), value == 0 ? 0 : Bits(value)) << i;
  }
}

template <int kCount>
void ExpectEveryPattern() {
  for (int pattern = 0; pattern < 1 << (2 * kCount); ++pattern) {
    Record<kCount> record;
    for (size_t i = 0; i < kCount; ++i) {
      record.values[i] = kValues[(pattern >> (2 * i)) & 3];
    }
    SCOPED_TRACE(pattern);
    ASSERT_NO_FATAL_FAILURE(ExpectSizeAndBytes<kCount>(record));
    ASSERT_NO_FATAL_FAILURE(ExpectMerge<kCount>(record));
    ASSERT_NO_FATAL_FAILURE(ExpectCopy<kCount>(record));
  }
}

TEST(FloatRuns, FourAndMoreInEveryPattern) {
  ExpectEveryPattern<4>();
  ExpectEveryPattern<5>();
  ExpectEveryPattern<7>();
  ExpectEveryPattern<8>();
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
