// Values for every kind of field, and records made of them.

#ifndef VANTIRO_TESTS_CONFORMANCE_MODEL_SAMPLES_H_
#define VANTIRO_TESTS_CONFORMANCE_MODEL_SAMPLES_H_

#include <random>
#include <string>
#include <vector>

#include "tests/support/types.h"

namespace vantiro {
namespace tests {

// Values other than zero, each of which another kind would write otherwise, and
// those at the ends of its range.
std::vector<Value> ValuesOf(Kind kind);

// What a message writes that holds these values of the field and nothing else;
// a singular field takes one at most.
std::string Encode(const Field& field, const std::vector<Value>& values);

// A field that no type declares, with a value below 128.
std::string UnknownField(char value);

// A record with something in every field and an unknown field, and the same in
// its sub-messages, but not below those. Another `seed` below 128 gives other
// values for most fields.
std::string Sample(const Type& type, size_t seed);

enum class Values {
  // As records have them.
  kPlausible,
  // Of the whole range of their kinds, often zero or at its limits.
  kExtreme,
};

// A record with about two of three fields, and the same for `depth` levels of
// its sub-messages.
std::string RandomRecord(const Type& type, Values values, std::mt19937* random,
                         int depth = 100);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_MODEL_SAMPLES_H_
