// Tags in the form in which the parsers compare them: as they are encoded.

#ifndef VANTIRO_LIB_INTERNAL_TAG_H_
#define VANTIRO_LIB_INTERNAL_TAG_H_

#include <cstdint>

namespace vantiro {
namespace internal {

// A raw tag: the bytes of a tag's shortest encoding, the first byte lowest.
// Only tags of one or two bytes have one; 0 means that there is none. Parsers
// compare raw tags so that they do not have to decode each tag.
using RawTag = uint32_t;

// The largest tag of a declared field takes two bytes.
constexpr int kMaxTagSize = 2;
constexpr uint32_t kMaxTwoByteTag = 0x3fff;

constexpr int TagSize(uint32_t tag) { return tag < 0x80 ? 1 : 2; }

constexpr RawTag ToRawTag(uint32_t tag) {
  return tag < 0x80 ? tag : (tag & 0x7f) | 0x80 | (tag >> 7) << 8;
}

constexpr uint32_t FromRawTag(RawTag raw) {
  return raw < 0x80 ? raw : (raw & 0x7f) | (raw >> 8) << 7;
}

constexpr int RawTagSize(RawTag raw) { return raw < 0x80 ? 1 : 2; }

// The raw tag at `p`. Gives 0 at the end of the input, for a byte 00, and for a
// tag that is overlong or longer than two bytes. Reads nothing from `end` on.
__attribute__((always_inline)) inline RawTag PeekTag(const uint8_t* p,
                                                     const uint8_t* end) {
  if (__builtin_expect(p == end, false)) return 0;
  const uint32_t first = p[0];
  if (first < 0x80) return first;
  if (end - p < 2) return 0;
  const uint32_t second = p[1];
  if (second - 1 >= 0x7f) return 0;
  return first | second << 8;
}

// The same for messages all of whose tags take one byte: gives 0 for longer
// tags.
__attribute__((always_inline)) inline RawTag PeekOneByteTag(
    const uint8_t* p, const uint8_t* end) {
  if (__builtin_expect(p == end, false)) return 0;
  const uint32_t first = p[0];
  return first < 0x80 ? first : 0;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_TAG_H_
