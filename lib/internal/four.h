// Four 32-bit values on which one operation works at once.
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
using EightHalves = uint16_t __attribute__((vector_size(16)));

__attribute__((always_inline)) inline Four IsZero(Four values) {
  return reinterpret_cast<Four>(values == 0);
}

__attribute__((always_inline)) inline Four IsNegative(Four values) {
  return reinterpret_cast<Four>(reinterpret_cast<FourSigned>(values) < 0);
}

// The sizes of the values as varints plus `more`; for a zero any number.
//
// The exponent of a float is the number of its highest bit. The bit below the
// highest one is cleared first, so that no conversion rounds up to the next
// power of two. Then (9 * highest bit + 73) / 64, as the runtime counts. The
// exponent has eight bits, so the product is that of its lower half.
__attribute__((always_inline)) inline Four VarintSizes(Four values, Four more) {
  const Four high_bits = values & ~(values >> 1);
  const FourFloats floats = __builtin_convertvector(
      reinterpret_cast<FourSigned>(high_bits), FourFloats);
  const Four exponents = reinterpret_cast<Four>(floats) << 1 >> 24;
  const Four products =
      reinterpret_cast<Four>(reinterpret_cast<EightHalves>(exponents) * 9);
  return (products + ((more << 6) - (9 * 127 - 73))) >> 6;
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

inline Four VarintSizes(Four values, Four more) {
  return ForEach(values, more, [](uint32_t x, uint32_t size) {
    do {
      ++size;
    } while ((x >>= 7) != 0);
    return size;
  });
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

inline bool HasAnyBit(Four four) {
  uint64_t halves[2];
  std::memcpy(halves, &four, sizeof(halves));
  return (halves[0] | halves[1]) != 0;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_FOUR_H_
