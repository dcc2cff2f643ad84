// The differences between two records of one type.

#ifndef VANTIRO_TOOLS_RECORD_DIFFERENCE_H_
#define VANTIRO_TOOLS_RECORD_DIFFERENCE_H_

#include <string>
#include <vector>

#include "tools/record/record.h"

namespace vantiro {
namespace tools {

struct Difference {
  enum Kind { kAdded, kRemoved, kChanged };
  Kind kind;
  std::string path;
  // The values in the first and in the second record; empty where there is
  // none.
  std::string before;
  std::string after;
};

// Compares by field, and repeated fields by index. Floats are equal if their
// bits are, or if they differ by no more than `tolerance`; a NaN equals only a
// NaN of the same bits. A scalar that is not there equals zero, except in a
// message that is not complete, where it has no value.
std::vector<Difference> Compare(const Record& before, const Record& after,
                                double tolerance);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_DIFFERENCE_H_
