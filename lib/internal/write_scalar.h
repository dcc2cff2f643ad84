// Writing singular scalars that are not zero to flat memory that has space for
// them.

#ifndef VANTIRO_LIB_INTERNAL_WRITE_SCALAR_H_
#define VANTIRO_LIB_INTERNAL_WRITE_SCALAR_H_

#include <cstdint>
#include <cstring>
#include <utility>

#include "internal/four.h"
#include "internal/write_varint.h"

namespace vantiro {
namespace internal {

// `value` comes from ToVarint of the field's kind.
template <uint32_t kTag, typename T>
__attribute__((always_inline)) inline uint8_t* WriteVarintField(uint8_t* p,
                                                                T value) {
  return value == 0 ? p : WriteTaggedVarint<kTag>(p, value);
}

template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteBoolField(uint8_t* p,
                                                              bool value) {
  if (!value) return p;
  p = WriteTag<kTag>(p);
  p[0] = 1;
  return p + 1;
}

// Whether `value` compares unequal to 0.0: false for both zeros
// (WireScalars.NegativeZero*), true for a NaN. Testing the bits takes one
// branch, the comparison itself two.
inline bool IsNonZero(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits << 1 != 0;
}

inline bool IsNonZero(double value) {
  uint64_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits << 1 != 0;
}

template <typename T>
bool IsNonZero(T value) {
  return value != 0;
}

template <uint32_t kTag, typename T>
__attribute__((always_inline)) inline uint8_t* WriteFixedField(uint8_t* p,
                                                               T value) {
  if (!IsNonZero(value)) return p;
  p = WriteTag<kTag>(p);
  Store(p, value);
  return p + sizeof(value);
}

template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteFloatField(uint8_t* p,
                                                               float value) {
  return WriteFixedField<kTag>(p, value);
}

// How many of several floats are zero.
enum class Zeros { kNone, kSome, kAll };

template <int kCount>
__attribute__((always_inline)) inline Zeros FindZeros(const float* first) {
  static_assert(kCount >= 4, "fewer are not worth it");
  Four any = {};
  Four all = ~any;
  for (int i = 0; i < kCount; i += 4) {
    // The last four overlap those before them if kCount is no multiple of 4.
    const int start = i + 4 <= kCount ? i : kCount - 4;
    const Four zeros = IsZero(LoadFour(first + start) << 1);
    any = any | zeros;
    all = all & zeros;
  }
  if (!HasAnyBit(any)) return Zeros::kNone;
  return HasAnyBit(~all) ? Zeros::kSome : Zeros::kAll;
}

template <uint32_t kFirstTag, uint32_t... kIndex>
__attribute__((always_inline)) inline uint8_t* WriteFloatFields(
    uint8_t* p, const float* first,
    std::integer_sequence<uint32_t, kIndex...> /*indices*/) {
  switch (FindZeros<sizeof...(kIndex)>(first)) {
    case Zeros::kNone:
      ((p = WriteTag<kFirstTag + 8 * kIndex>(p), Store(p, *first++),
        p += sizeof(float)),
       ...);
      return p;
    case Zeros::kSome:
      ((p = WriteFloatField<kFirstTag + 8 * kIndex>(p, *first++)), ...);
      return p;
    case Zeros::kAll:
      return p;
  }
  return p;
}

// Writes `kCount` float fields with consecutive field numbers, which are
// adjacent in memory from `first` on. If none of them is zero, the positions of
// all are constants.
template <uint32_t kFirstTag, uint32_t kCount>
__attribute__((always_inline)) inline uint8_t* WriteFloatFields(
    uint8_t* p, const float* first) {
  return WriteFloatFields<kFirstTag>(
      p, first, std::make_integer_sequence<uint32_t, kCount>());
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_WRITE_SCALAR_H_
