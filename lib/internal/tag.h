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

// The same of up to five bytes: for messages that declare a field whose tag
// takes more than two bytes.
using LongRawTag = uint64_t;

constexpr int kMaxTagSize = 5;
constexpr uint32_t kMaxTwoByteTag = 0x3fff;

constexpr int TagSize(uint32_t tag) {
  return tag < 0x80         ? 1
         : tag < 0x4000     ? 2
         : tag < 0x200000   ? 3
         : tag < 0x10000000 ? 4
                            : 5;
}

constexpr RawTag ToRawTag(uint32_t tag) {
  return tag < 0x80 ? tag : (tag & 0x7f) | 0x80 | (tag >> 7) << 8;
}

constexpr uint32_t FromRawTag(RawTag raw) {
  return raw < 0x80 ? raw : (raw & 0x7f) | (raw >> 8) << 7;
}

constexpr int RawTagSize(RawTag raw) { return raw < 0x80 ? 1 : 2; }

constexpr LongRawTag ToLongRawTag(uint32_t tag) {
  LongRawTag raw = 0;
  int shift = 0;
  for (; tag >= 0x80; tag >>= 7, shift += 8) {
    raw |= LongRawTag{(tag & 0x7f) | 0x80} << shift;
  }
  return raw | LongRawTag{tag} << shift;
}

constexpr uint32_t FromRawTag(LongRawTag raw) {
  uint32_t tag = 0;
  for (int shift = 0; raw != 0; raw >>= 8, shift += 7) {
    tag |= static_cast<uint32_t>(raw & 0x7f) << shift;
  }
  return tag;
}

constexpr int RawTagSize(LongRawTag raw) { return TagSize(FromRawTag(raw)); }

// Whether `bits`, which PeekTag gave, are a raw tag.
constexpr bool IsRawTag(uint32_t bits) {
  return bits - 1 < 0x7f || bits - 0x100 < 0x7f00;
}

// Whether `bits`, which PeekLongTag gave, are one.
constexpr bool IsRawTag(LongRawTag bits) { return bits != 0; }

// The raw tag at `p`. For other bytes (a byte 00, a tag that is overlong,
// truncated, or longer than two bytes) and at the end of the input it gives
// what is equal to no raw tag. Reads nothing from `end` on.
__attribute__((always_inline)) inline RawTag PeekTag(const uint8_t* p,
                                                     const uint8_t* end) {
  if (__builtin_expect(p == end, false)) return 0;
  const uint32_t first = p[0];
  if (first < 0x80) return first;
  if (__builtin_expect(p + 1 == end, false)) return first;
  return first | uint32_t{p[1]} << 8;
}

// The raw tag at `p`, or 0 if there is none, for messages that declare longer
// tags.
inline LongRawTag PeekLongTag(const uint8_t* p, const uint8_t* end) {
  LongRawTag raw = 0;
  for (int i = 0; i < kMaxTagSize && p + i != end; ++i) {
    raw |= LongRawTag{p[i]} << (8 * i);
    if (p[i] >= 0x80) continue;
    // Overlong, or of more than 32 bits.
    const bool is_other = (i > 0 && p[i] == 0) || (i == 4 && p[i] > 0x0f);
    return is_other ? 0 : raw;
  }
  return 0;
}

// What PeekTag or PeekLongTag gives, whichever a parser uses.
template <typename Tag>
__attribute__((always_inline)) inline Tag Peek(const uint8_t* p,
                                               const uint8_t* end) {
  if constexpr (sizeof(Tag) == sizeof(RawTag)) {
    return PeekTag(p, end);
  } else {
    return PeekLongTag(p, end);
  }
}

// PeekTag for messages all of whose tags take one byte: of longer tags it
// gives the first byte, which is equal to no raw tag.
__attribute__((always_inline)) inline RawTag PeekOneByteTag(
    const uint8_t* p, const uint8_t* end) {
  return __builtin_expect(p == end, false) ? 0 : p[0];
}

// The same after a field that was read up to `p`: sets `*tag`. False if `p` is
// null, since the field could not be read.
__attribute__((always_inline)) inline bool PeekTagAfter(const uint8_t* p,
                                                        const uint8_t* end,
                                                        RawTag* tag) {
  if (p == nullptr) return false;
  *tag = PeekTag(p, end);
  return true;
}
__attribute__((always_inline)) inline bool PeekOneByteTagAfter(
    const uint8_t* p, const uint8_t* end, RawTag* tag) {
  if (p == nullptr) return false;
  *tag = PeekOneByteTag(p, end);
  return true;
}

inline bool PeekLongTagAfter(const uint8_t* p, const uint8_t* end,
                             LongRawTag* tag) {
  if (p == nullptr) return false;
  *tag = PeekLongTag(p, end);
  return true;
}

// Whether `tag` is `next`, the tag of the field that a parser expects. Most
// often it is. Told so, the compiler places the code of the fields one after
// another in the order in which they come.
__attribute__((always_inline)) inline bool IsNext(RawTag tag, RawTag next) {
  return __builtin_expect_with_probability(tag == next, 1, 0.7) != 0;
}
inline bool IsNext(LongRawTag tag, LongRawTag next) { return tag == next; }

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_TAG_H_
