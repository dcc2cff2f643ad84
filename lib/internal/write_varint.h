// Writing tags and varints to flat memory that has space for them.

#ifndef VANTIRO_LIB_INTERNAL_WRITE_VARINT_H_
#define VANTIRO_LIB_INTERNAL_WRITE_VARINT_H_

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "internal/tag.h"

namespace vantiro {
namespace internal {

// The functions here store whole words, so that up to kWriteOverrun bytes after
// what they write change too: a varint of three bytes may be stored as eight.
constexpr int kWriteOverrun = sizeof(uint64_t) - 3;

// Stores `bits`, lowest byte first.
template <typename T>
inline void Store(uint8_t* p, T bits) {
  std::memcpy(p, &bits, sizeof(bits));
}

template <uint32_t kTag>
inline uint8_t* WriteTag(uint8_t* p) {
  constexpr LongRawTag kRaw = ToLongRawTag(kTag);
  constexpr int kSize = TagSize(kTag);
  if constexpr (kSize == 1) {
    p[0] = static_cast<uint8_t>(kRaw);
  } else if constexpr (kSize == 2) {
    Store(p, static_cast<uint16_t>(kRaw));
  } else {
    Store(p, static_cast<uint32_t>(kRaw));
    if constexpr (kSize == 5) p[4] = static_cast<uint8_t>(kRaw >> 32);
  }
  return p + kSize;
}

// Spreads 28 bits over four bytes of seven bits each. An addition of the same
// bits shifts them by one, and of three times the same bits by two.
__attribute__((always_inline)) inline uint32_t SpreadVarint(uint32_t bits) {
  bits += (bits & 0x0fffc000) * 3;
  return bits + (bits & 0x3f803f80);
}

// Write a varint of three bytes or more. The 32-bit forms are inline, but not
// always: calls from large functions take less code and no more time.
inline uint8_t* WriteLongVarint(uint8_t* p, uint32_t value) {
  const uint32_t low = SpreadVarint(value & 0x0fffffff);
  if (value < 0x200000) {
    Store(p, low | 0x8080);
    return p + 3;
  }
  if (value < 0x10000000) {
    Store(p, low | 0x808080);
    return p + 4;
  }
  Store(p, low | 0x80808080);
  p[4] = static_cast<uint8_t>(value >> 28);
  return p + 5;
}
// A negative int32 or enum is sign-extended to 64 bits and takes ten bytes.
inline uint8_t* WriteLongVarint(uint8_t* p, int32_t value) {
  const auto bits = static_cast<uint32_t>(value);
  if (value >= 0) return WriteLongVarint(p, bits);
  Store(p, SpreadVarint(bits & 0x0fffffff) | 0x80808080);
  Store(p + 4, uint64_t{0x01fffffffff0} | bits >> 28);
  return p + 10;
}
uint8_t* WriteLongVarint(uint8_t* p, uint64_t value);

// A value from 0x80 to 0x3fff as it is encoded.
inline uint32_t TwoByteVarint(uint32_t value) {
  return (value + (value & 0x3f80)) | 0x80;
}

// The conditions below are true about as often as not. The probability makes
// the compiler place the code of the shorter form first, but not move the other
// code far away. GCC loses it where the builtin is called by a function that
// returns bool.
template <typename T>
__attribute__((always_inline)) inline uint8_t* WriteVarint(uint8_t* p,
                                                           T value) {
  const auto bits = static_cast<typename std::make_unsigned<T>::type>(value);
  if (__builtin_expect_with_probability(bits < 0x80, 1, 0.6)) {
    p[0] = static_cast<uint8_t>(bits);
    return p + 1;
  }
  if (__builtin_expect_with_probability(bits < 0x4000, 1, 0.6)) {
    Store(p, static_cast<uint16_t>(TwoByteVarint(static_cast<uint32_t>(bits))));
    return p + 2;
  }
  return WriteLongVarint(p, value);
}

// Writes a tag and a varint, in one store if they are short.
template <uint32_t kTag, typename T>
__attribute__((always_inline)) inline uint8_t* WriteTaggedVarint(uint8_t* p,
                                                                 T value) {
  constexpr int kSize = TagSize(kTag);
  if constexpr (kSize > 2) {
    return WriteVarint(WriteTag<kTag>(p), value);
  } else {
    constexpr uint32_t kRaw = ToRawTag(kTag);
    const auto bits = static_cast<typename std::make_unsigned<T>::type>(value);
    if (__builtin_expect_with_probability(bits < 0x80, 1, 0.6)) {
      const uint32_t both = kRaw | static_cast<uint32_t>(bits) << (8 * kSize);
      if (kSize == 1) {
        Store(p, static_cast<uint16_t>(both));
      } else {
        Store(p, both);
      }
      return p + kSize + 1;
    }
    if (__builtin_expect_with_probability(bits < 0x4000, 1, 0.6)) {
      const uint32_t varint = TwoByteVarint(static_cast<uint32_t>(bits));
      Store(p, kRaw | varint << (8 * kSize));
      return p + kSize + 2;
    }
    return WriteLongVarint(WriteTag<kTag>(p), value);
  }
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_WRITE_VARINT_H_
