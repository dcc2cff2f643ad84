#include "tools/identify/value_cost.h"

#include <algorithm>
#include <cmath>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

// A printable character: some ninety, of different frequency.
constexpr double kCharacterBits = 6.5;
// The size of a varint, by size: short ones are more likely.
constexpr double kSizeBits[] = {0, 0.7, 2, 3, 4, 4, 7, 7, 7, 7, 4};

bool IsInRange(Kind kind, uint64_t value) {
  switch (kind) {
    case Kind::kBool:
      return value <= 1;
    case Kind::kUnsigned32:
    case Kind::kZigZag32:
      return value <= UINT32_MAX;
    case Kind::kSigned32:
    case Kind::kEnum:
      return value <= INT32_MAX || value >= 0xffffffff80000000;
    default:
      return true;
  }
}

bool IsControlCharacter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < ' ' && c != '\n' && c != '\t') || byte == 0x7f;
}

}  // namespace

bool IsCanonical(const FieldStructure& field, const Varint& varint) {
  return varint.IsShortest() && IsInRange(field.kind, varint.value) &&
         (field.is_repeated || varint.value != 0);
}

bool GetVarintCost(const FieldStructure& field, const Varint& varint,
                   double* cost) {
  if (field.kind == Kind::kBool) {
    *cost = field.is_repeated ? 1 : 0;
    return true;
  }
  if (field.kind == Kind::kEnum) {
    const auto& numbers = field.enum_numbers;
    *cost = std::log2(static_cast<double>(numbers.size() + 1));
    return std::find(numbers.begin(), numbers.end(),
                     static_cast<int>(varint.value)) != numbers.end();
  }
  // A negative int32 has ten bytes, but 32 bits of information.
  const bool is_negative32 =
      varint.size == kMaxVarintSize && field.kind == Kind::kSigned32;
  const auto size = static_cast<double>(varint.size);
  *cost = std::min(8 * size,
                   (is_negative32 ? 32 : 7 * size) + kSizeBits[varint.size]);
  return true;
}

bool GetStringCost(std::string_view text, double* cost) {
  *cost = kCharacterBits * static_cast<double>(text.size());
  return IsUtf8(text) &&
         std::none_of(text.begin(), text.end(), IsControlCharacter);
}

}  // namespace tools
}  // namespace vantiro
