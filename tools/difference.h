// What is unlike in two records of one type.

#ifndef VANTIRO_TOOLS_DIFFERENCE_H_
#define VANTIRO_TOOLS_DIFFERENCE_H_

#include <string>
#include <vector>

#include "tools/record.h"

namespace vantiro {
namespace inspection {

struct Difference {
  enum Kind { kAdded, kRemoved, kChanged };
  Kind kind;
  std::string path;
  // What stands in the first and in the second record, empty if nothing does.
  std::string before;
  std::string after;
};

// Compares by field, and lists by index. Floats are equal with equal bits, or
// if they differ by no more than `tolerance`; a NaN equals only itself. Zero
// and never set are equal.
std::vector<Difference> Compare(const Record& before, const Record& after,
                                double tolerance);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_DIFFERENCE_H_
