// Inputs that make a parser hold as much memory as they can for their size.

#ifndef VANTIRO_TESTS_ROBUSTNESS_WORST_INPUTS_H_
#define VANTIRO_TESTS_ROBUSTNESS_WORST_INPUTS_H_

#include <string>
#include <vector>

#include "tests/support/types.h"

namespace vantiro {
namespace tests {

struct NamedInput {
  std::string name;
  std::string bytes;
};

// For a message of this type and for each of its fields: repeated fields one
// element beyond a doubling of their storage, packed and unpacked; elements
// that are empty, and elements filled with what takes the most for its bytes;
// all sub-messages, present and empty; unknown fields.
std::vector<NamedInput> WorstInputs(const Type& type);

// For a message of this type and for each of its fields, and for those of its
// sub-messages: a length that claims more than there is, and the same in a
// sub-message that claims it.
std::vector<NamedInput> FalseLengths(const Type& type);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_ROBUSTNESS_WORST_INPUTS_H_
