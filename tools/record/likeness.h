// How alike values of one field are.

#ifndef VANTIRO_TOOLS_RECORD_LIKENESS_H_
#define VANTIRO_TOOLS_RECORD_LIKENESS_H_

#include <cstdint>

#include "tools/record/record.h"

namespace vantiro {
namespace tools {

// Floats are equal if their bits are, or if they differ by no more than
// `tolerance`; a NaN equals only a NaN of the same bits. Other scalars are
// equal if their bits are.
bool AreEqual(const FieldDescriptor& field, uint64_t a, uint64_t b,
              double tolerance);

// From 0 to 1, which only equal values have. Numbers that differ by less than a
// quarter of their mean are alike to some degree.
double Likeness(const FieldDescriptor& field, uint64_t a, uint64_t b,
                double tolerance);
// The mean over all values in two messages of one type, with elements of
// repeated fields compared by index. The time is that of reading both.
double Likeness(const Record& a, const Record& b, double tolerance);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_LIKENESS_H_
