#include "tools/wire/encoding_flags.h"

namespace vantiro {
namespace tools {
namespace {

struct FlagInfo {
  EncodingFlag flag;
  bool is_canonical;
  const char* name;
};

constexpr FlagInfo kFlags[] = {
    {EncodingFlag::kUnknown, true, "unknown field"},
    {EncodingFlag::kOverlongTag, false, "overlong tag"},
    {EncodingFlag::kOverlongLength, false, "overlong length"},
    {EncodingFlag::kOverlongValue, false, "overlong value"},
    {EncodingFlag::kOutOfRangeValue, false, "varint out of range"},
    {EncodingFlag::kUnpacked, false, "unpacked element"},
    {EncodingFlag::kPackedRunAsElement, false, "packed run read as an element"},
    {EncodingFlag::kFurtherPackedRun, false, "further packed run"},
    {EncodingFlag::kOutOfOrder, false, "out of order"},
    {EncodingFlag::kDuplicate, false, "duplicate field"},
    {EncodingFlag::kUndeclaredEnum, true, "undeclared enum number"},
    {EncodingFlag::kNegativeZero, true, "-0.0"},
    {EncodingFlag::kNan, true, "NaN"},
    {EncodingFlag::kWrittenDefault, false, "default value written"},
};

}  // namespace

EncodingFlags EncodingFlags::Canonical() const {
  EncodingFlags canonical;
  for (const FlagInfo& info : kFlags) {
    if (info.is_canonical && Has(info.flag)) canonical.Add(info.flag);
  }
  return canonical;
}

EncodingFlags EncodingFlags::NotCanonical() const {
  EncodingFlags others = *this;
  others.Remove(Canonical());
  return others;
}

std::vector<std::string> EncodingFlags::Names() const {
  std::vector<std::string> names;
  for (const FlagInfo& info : kFlags) {
    if (Has(info.flag)) names.emplace_back(info.name);
  }
  return names;
}

}  // namespace tools
}  // namespace vantiro
