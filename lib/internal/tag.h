// Tags as they stand in the bytes of a record.

#ifndef VANTIRO_LIB_INTERNAL_TAG_H_
#define VANTIRO_LIB_INTERNAL_TAG_H_

#include <cstdint>

namespace vantiro {
namespace internal {

// A tag in its raw form: the bytes of its shortest encoding, the first one
// lowest. Only tags of one or two bytes have one; 0 stands for none of these.
// Comparing raw tags spares the parser the decoding of each.
using RawTag = uint32_t;

constexpr uint32_t kMaxTwoByteTag = 0x3fff;

constexpr int TagSize(uint32_t tag) { return tag < 0x80 ? 1 : 2; }

constexpr RawTag ToRawTag(uint32_t tag) {
  return tag < 0x80 ? tag : (tag & 0x7f) | 0x80 | (tag >> 7) << 8;
}

constexpr uint32_t FromRawTag(RawTag raw) {
  return raw < 0x80 ? raw : (raw & 0x7f) | (raw >> 8) << 7;
}

constexpr int RawTagSize(RawTag raw) { return raw < 0x80 ? 1 : 2; }

// The tag at `p` in its raw form, or 0 if there is none or it has another form
// (the end of the input, a byte 00, an overlong or longer tag). Reads nothing
// from `end` on.
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

// The same for messages whose tags all take one byte: gives 0 for longer ones.
__attribute__((always_inline)) inline RawTag PeekShortTag(const uint8_t* p,
                                                          const uint8_t* end) {
  if (__builtin_expect(p == end, false)) return 0;
  const uint32_t first = p[0];
  return first < 0x80 ? first : 0;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_TAG_H_
