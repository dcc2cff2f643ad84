#include "tools/marks.h"

namespace vantiro {
namespace inspection {
namespace {

struct MarkInfo {
  Mark mark;
  bool is_canonical;
  const char* name;
};

constexpr MarkInfo kMarks[] = {
    {Mark::kUnknown, true, "unknown field"},
    {Mark::kOverlongTag, false, "overlong tag"},
    {Mark::kOverlongLength, false, "overlong length"},
    {Mark::kOverlongValue, false, "overlong value"},
    {Mark::kUnusualValue, false, "unusual varint"},
    {Mark::kUnpacked, false, "unpacked element"},
    {Mark::kMisreadBlock, false, "packed block read as an element"},
    {Mark::kSplitList, false, "list in several blocks"},
    {Mark::kOutOfOrder, false, "out of order"},
    {Mark::kDuplicate, false, "duplicate"},
    {Mark::kUndeclaredEnum, true, "undeclared enum number"},
    {Mark::kNegativeZero, true, "-0.0"},
    {Mark::kNan, true, "NaN"},
    {Mark::kWrittenZero, false, "zero that is not written"},
};

}  // namespace

bool Marks::IsCanonical() const {
  for (const MarkInfo& info : kMarks) {
    if (!info.is_canonical && Has(info.mark)) return false;
  }
  return true;
}

std::vector<std::string> Marks::Names() const {
  std::vector<std::string> names;
  for (const MarkInfo& info : kMarks) {
    if (Has(info.mark)) names.emplace_back(info.name);
  }
  return names;
}

}  // namespace inspection
}  // namespace vantiro
