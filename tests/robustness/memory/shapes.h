// Inputs that make a parser hold as much memory as they can for their size.

#ifndef VANTIRO_TESTS_ROBUSTNESS_MEMORY_SHAPES_H_
#define VANTIRO_TESTS_ROBUSTNESS_MEMORY_SHAPES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/types.h"

namespace vantiro {
namespace tests {

struct Shape {
  std::string name;
  std::string bytes;
};

// The tag of a field's length-delimited form.
std::string BytesTag(int number);
std::string VarintBytes(uint64_t value);

// What is bad by design for a message of this type, for each of its fields:
// lists one beyond a doubling of their storage, packed and one by one; elements
// that are empty, and elements filled with what takes the most for its bytes;
// sub-messages that are present and empty, wide and deep; unknown fields.
std::vector<Shape> BadShapes(const Type& type);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_ROBUSTNESS_MEMORY_SHAPES_H_
