// The differences between two records of one type.

#ifndef VANTIRO_TOOLS_RECORD_DIFFERENCE_H_
#define VANTIRO_TOOLS_RECORD_DIFFERENCE_H_

#include <functional>
#include <string>

#include "tools/record/record.h"

namespace vantiro {
namespace tools {

struct Difference {
  enum Kind { kAdded, kRemoved, kChanged, kSame };

  // "a.b[2].c"; an index that is not the same in both records is "[2->3]".
  std::string Path() const;

  Kind kind;
  // The paths and values in the first and in the second record; empty where
  // there is none.
  std::string before_path;
  std::string after_path;
  std::string before;
  std::string after;
};

struct ComparisonOptions {
  // Up to this difference floats are equal; a NaN equals only a NaN of the same
  // bits.
  double tolerance = 0;
  // Compare elements of repeated fields that have the same index, and not those
  // that alignment.h finds to belong together.
  bool by_index = false;
  // Visit also what is the same.
  bool has_same = false;
};

// Compares field by field. A scalar that is not there equals zero, except in a
// message that is not complete, where it has no value.
void Compare(const Record& before, const Record& after,
             const ComparisonOptions& options,
             const std::function<void(const Difference&)>& visit);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_DIFFERENCE_H_
