// How many bits it takes to encode a value, given the type of its field.

#ifndef VANTIRO_TOOLS_IDENTIFY_VALUE_COST_H_
#define VANTIRO_TOOLS_IDENTIFY_VALUE_COST_H_

#include <cstdint>
#include <string_view>

#include "tools/identify/structure.h"
#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {

// Whether the library writes these bytes for a value of the field.
bool IsCanonical(const FieldStructure& field, const Varint& varint);

// These set `*cost`, or return false if the value is not as the type predicts.
// The first two are for canonical values.
bool GetVarintCost(const FieldStructure& field, const Varint& varint,
                   double* cost);
// Inline, since a scan spends most of its time on floats.
inline bool GetFloatCost(uint32_t bits, double* cost) {
  constexpr unsigned kMinExponent = 107;  // about 1e-6
  constexpr unsigned kMaxExponent = 157;  // about 1e9
  constexpr double kSignBits = 1;
  constexpr double kExponentBits = 5.7;
  // People choose round numbers, so these are likely.
  const bool is_round = (bits & 0xffff) == 0;
  *cost = kSignBits + kExponentBits + 1 + (is_round ? 7 : 23);
  const unsigned exponent = bits >> 23 & 0xff;
  const bool is_zero = bits << 1 == 0;
  return (exponent >= kMinExponent && exponent <= kMaxExponent) || is_zero;
}
// A string is predicted to be valid UTF-8 without control characters.
bool GetStringCost(std::string_view text, double* cost);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_VALUE_COST_H_
