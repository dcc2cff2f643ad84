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

}  // namespace
}  // namespace internal
}  // namespace vantiro
