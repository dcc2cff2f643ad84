// What a message makes of given bytes.

#ifndef VANTIRO_TESTS_CONFORMANCE_WIRE_READING_H_
#define VANTIRO_TESTS_CONFORMANCE_WIRE_READING_H_

#include <string>
#include <vector>

#include "tests/conformance/wire/cases.h"
#include "tests/support/bytes.h"
#include "tests/support/roads.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {

// The ways to give bytes that a group of cases asks for: all; those where they
// are "at hand" in one piece, or come "byte by byte"; where their end is
// "limited", or "open-ended" and known only when it is reached.
std::vector<Given> WaysFor(const std::string& ways);

// Reads into fresh messages, on all roads for bytes given in these ways, and
// expects what the case says.
void ExpectReading(const Case& wanted, const std::vector<Given>& ways);

// A message that has merged `input`, in hexadecimal.
template <typename T>
T Merged(const std::string& input) {
  const std::string bytes = FromHex(input);
  CodedInputStream stream(reinterpret_cast<const uint8_t*>(bytes.data()),
                          static_cast<int>(bytes.size()));
  T message;
  message.MergePartialFromCodedStream(&stream);
  return message;
}

// What `message` writes, on all roads, in hexadecimal.
inline std::string Written(const MessageLite& message) {
  return ToHex(Serialize(*FindType(message.GetTypeName()), message));
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_WIRE_READING_H_
