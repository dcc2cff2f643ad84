// Four 32-bit values, or eight of 16 bits, on which one operation works at
// once.
//
// With GCC and Clang these are vector types of the compiler, for which every
// target has instructions. VANTIRO_PORTABLE selects plain loops with the same
// results. Tests run both.

#ifndef VANTIRO_LIB_INTERNAL_FOUR_H_
#define VANTIRO_LIB_INTERNAL_FOUR_H_

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantiro {
namespace internal {

// A mask has all bits set in the values for which a condition is true, and no
// bits set in the others.
#ifndef VANTIRO_PORTABLE

using Four = uint32_t __attribute__((vector_size(16)));
using FourSigned = int32_t __attribute__((vector_size(16)));
using FourFloats = float __attribute__((vector_size(16)));
using Eight = int16_t __attribute__((vector_size(16)));

__attribute__((always_inline)) inline Four IsZero(Four values) {
  return reinterpret_cast<Four>(values == 0);
}

__attribute__((always_inline)) inline Four IsNegative(Four values) {
  return reinterpret_cast<Four>(reinterpret_cast<FourSigned>(values) < 0);
}

// For each value 127 plus the number of its highest bit; 0 for a zero; 414
// where bit 31 is set.
//
// These are the exponents of the values as floats, with the sign before them.
// The bit below the highest one is cleared first, so that no conversion rounds
// up to the next power of two.
__attribute__((always_inline)) inline Four Exponents(Four values) {
  const Four high_bits = values & ~(values >> 1);
  return reinterpret_cast<Four>(__builtin_convertvector(
             reinterpret_cast<FourSigned>(high_bits), FourFloats)) >>
         23;
}

// The values of `a` and `b`, which are below 2^16.
__attribute__((always_inline)) inline Eight Join(Four a, Four b) {
  return reinterpret_cast<Eight>(a | b << 16);
}

__attribute__((always_inline)) inline Eight Min(Eight a, Eight b) {
  return a < b ? a : b;
}

__attribute__((always_inline)) inline Eight Max(Eight a, Eight b) {
  return a > b ? a : b;
}

#else

struct Four {
  uint32_t values[4];

  uint32_t operator[](int i) const { return values[i]; }
};

template <typename Function>
Four ForEach(Four a, Four b, Function function) {
  Four result;
  for (int i = 0; i < 4; ++i) result.values[i] = function(a[i], b[i]);
  return result;
}

inline Four operator+(Four a, Four b) {
  return ForEach(a, b, [](uint32_t x, uint32_t y) { return x + y; });
}
inline Four operator&(Four a, Four b) {
  return ForEach(a, b, [](uint32_t x, uint32_t y) { return x & y; });
}
inline Four operator|(Four a, Four b) {
  return ForEach(a, b, [](uint32_t x, uint32_t y) { return x | y; });
}
inline Four operator^(Four a, Four b) {
  return ForEach(a, b, [](uint32_t x, uint32_t y) { return x ^ y; });
}
inline Four operator~(Four a) {
  return ForEach(a, a, [](uint32_t x, uint32_t) { return ~x; });
}
inline Four operator>>(Four a, int count) {
  return ForEach(a, a, [count](uint32_t x, uint32_t) { return x >> count; });
}
inline Four operator<<(Four a, int count) {
  return ForEach(a, a, [count](uint32_t x, uint32_t) { return x << count; });
}

inline Four IsZero(Four values) {
  return ForEach(values, values,
                 [](uint32_t x, uint32_t) { return x == 0 ? ~0U : 0U; });
}

inline Four IsNegative(Four values) {
  return ForEach(values, values,
                 [](uint32_t x, uint32_t) { return x >> 31 != 0 ? ~0U : 0U; });
}

inline Four Exponents(Four values) {
  return ForEach(values, values, [](uint32_t x, uint32_t) {
    if (x >> 31 != 0) return 414U;
    uint32_t exponent = x == 0 ? 0 : 127;
    for (; x > 1; x >>= 1) ++exponent;
    return exponent;
  });
}

struct Eight {
  int16_t values[8];
};

template <typename Function>
Eight ForEach(Eight a, Eight b, Function function) {
  Eight result;
  for (int i = 0; i < 8; ++i) {
    result.values[i] =
        static_cast<int16_t>(function(int{a.values[i]}, int{b.values[i]}));
  }
  return result;
}

inline Eight operator+(Eight a, Eight b) {
  return ForEach(a, b, [](int x, int y) { return x + y; });
}
inline Eight operator*(Eight a, int factor) {
  return ForEach(a, a, [factor](int x, int) { return x * factor; });
}
inline Eight operator>>(Eight a, int count) {
  return ForEach(a, a, [count](int x, int) { return x >> count; });
}

inline Eight Join(Four a, Four b) {
  const Four joined = a | b << 16;
  Eight result;
  std::memcpy(&result, &joined, sizeof(result));
  return result;
}

inline Eight Min(Eight a, Eight b) {
  return ForEach(a, b, [](int x, int y) { return x < y ? x : y; });
}

inline Eight Max(Eight a, Eight b) {
  return ForEach(a, b, [](int x, int y) { return x > y ? x : y; });
}

#endif

__attribute__((always_inline)) inline Four LoadFour(const void* p) {
  Four four;
  std::memcpy(&four, p, sizeof(four));
  return four;
}

// The sum of the four values, which has to be below 2^32.
inline size_t Sum(Four four) {
  uint64_t halves[2];
  std::memcpy(halves, &four, sizeof(halves));
  const uint64_t sum = halves[0] + halves[1];
  return static_cast<uint32_t>(sum) + static_cast<size_t>(sum >> 32);
}

// The sum of the eight values, which has to be below 2^16.
inline size_t Sum(Eight eight) {
  uint64_t halves[2];
  std::memcpy(halves, &eight, sizeof(halves));
  // The product's highest 16 bits are the sum of all.
  return (halves[0] + halves[1]) * 0x0001000100010001 >> 48;
}

// The sums of pairs of values that are not negative.
__attribute__((always_inline)) inline Four AddPairs(Eight eight) {
  const Four pairs = LoadFour(&eight);
  return (pairs & Four{0xffff, 0xffff, 0xffff, 0xffff}) + (pairs >> 16);
}

inline bool HasAnyBit(Four four) {
  uint64_t halves[2];
  std::memcpy(halves, &four, sizeof(halves));
  return (halves[0] | halves[1]) != 0;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_FOUR_H_
