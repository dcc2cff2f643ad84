#include "internal/tag.h"

#include <gtest/gtest.h>

#include "internal/varint.h"

namespace vantiro {
namespace internal {
namespace {

// The raw tag of a tag in its shortest encoding at the begin of [p, end), 0 if
// there is none.
RawTag Expected(const uint8_t* p, const uint8_t* end, int max_size) {
  const Varint tag = ReadVarint(p, end);
  const bool is_raw = tag.next != nullptr && tag.value != 0 &&
                      tag.value <= kMaxTwoByteTag &&
                      tag.next - p == TagSize(static_cast<uint32_t>(tag.value));
  if (!is_raw || tag.next - p > max_size) return 0;
  return ToRawTag(static_cast<uint32_t>(tag.value));
}

RawTag IfRaw(uint32_t bits) { return IsRawTag(bits) ? bits : 0; }

TEST(Tag, IsARawTagIfItsEncodingIsTheShortest) {
  for (int first = 0; first < 0x100; ++first) {
    for (int second = 0; second < 0x100; ++second) {
      const uint8_t bytes[] = {static_cast<uint8_t>(first),
                               static_cast<uint8_t>(second), 1};
      for (int size = 0; size <= 3; ++size) {
        const uint8_t* const end = bytes + size;
        EXPECT_EQ(IfRaw(PeekTag(bytes, end)), Expected(bytes, end, 2))
            << first << " " << second << " of " << size;
        EXPECT_EQ(IfRaw(PeekOneByteTag(bytes, end)), Expected(bytes, end, 1))
            << first << " " << second << " of " << size;
      }
    }
  }
}

TEST(Tag, OfUpToFiveBytesIsARawTagToo) {
  for (int bit = 0; bit < 32; ++bit) {
    for (const uint32_t tag : {uint32_t{1} << bit, UINT32_MAX >> bit}) {
      // Its shortest encoding, one byte longer, and cut off.
      uint8_t bytes[6] = {};
      const int size = TagSize(tag);
      for (int i = 0; i < size; ++i) {
        bytes[i] = static_cast<uint8_t>(tag >> (7 * i) | 0x80);
      }
      bytes[size - 1] &= 0x7f;
      const LongRawTag raw = PeekLongTag(bytes, bytes + size);
      EXPECT_EQ(raw, ToLongRawTag(tag)) << tag;
      EXPECT_EQ(FromRawTag(raw), tag);
      EXPECT_EQ(RawTagSize(raw), size) << tag;
      EXPECT_EQ(PeekLongTag(bytes, bytes + size - 1), 0u) << tag;
      bytes[size - 1] |= 0x80;
      EXPECT_EQ(PeekLongTag(bytes, bytes + size + 1), 0u) << tag;
    }
  }
  // More than 32 bits.
  const uint8_t bytes[] = {0x88, 0x80, 0x80, 0x80, 0x10};
  EXPECT_EQ(PeekLongTag(bytes, bytes + 5), 0u);
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
