#include "tools/statistics/number.h"

#include <charconv>
#include <cstring>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

constexpr uint64_t kSign = uint64_t{1} << 63;

template <typename T>
std::string ShortestText(T value) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof(text), value).ptr;
  return {text, end};
}

}  // namespace

// The bits of doubles of one sign have the order of their magnitudes.
uint64_t RankOfDouble(double value) {
  uint64_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

double DoubleOfRank(uint64_t rank) {
  const uint64_t bits = (rank & kSign) != 0 ? rank & ~kSign : ~rank;
  double value;
  std::memcpy(&value, &bits, sizeof(value));
  return value;
}

Number Number::Of(double value) { return {kFloating, RankOfDouble(value)}; }

Number Number::Of(const FieldDescriptor& field, uint64_t bits) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_FLOAT:
      return Of(double{ToFloat(bits)});
    case FieldDescriptor::CPPTYPE_INT32:
      return {
          kSigned,
          static_cast<uint64_t>(int64_t{static_cast<int32_t>(bits)}) ^ kSign};
    case FieldDescriptor::CPPTYPE_INT64:
      return {kSigned, bits ^ kSign};
    default:
      return {kUnsigned, bits};
  }
}

Number::Kind Number::KindOf(const FieldDescriptor& field) {
  return Of(field, 0).kind();
}

double Number::ToDouble() const {
  switch (kind_) {
    case kSigned:
      return static_cast<double>(static_cast<int64_t>(rank_ ^ kSign));
    case kUnsigned:
      return static_cast<double>(rank_);
    default:
      return DoubleOfRank(rank_);
  }
}

std::string Number::Text() const {
  if (kind_ == kUnsigned) return std::to_string(rank_);
  if (kind_ == kSigned) {
    return std::to_string(static_cast<int64_t>(rank_ ^ kSign));
  }
  const double value = ToDouble();
  const auto as_float = static_cast<float>(value);
  return double{as_float} == value ? ShortestText(as_float)
                                   : ShortestText(value);
}

}  // namespace tools
}  // namespace vantiro
