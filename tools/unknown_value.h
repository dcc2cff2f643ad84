// Unknown fields as they are read from text and JSON.

#ifndef VANTIRO_TOOLS_UNKNOWN_VALUE_H_
#define VANTIRO_TOOLS_UNKNOWN_VALUE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {

// Why no unknown field of that number and wire type can stand in a message of
// `type`, which is null in a group; empty if one can.
std::string WhyNotUnknown(const Descriptor* type, uint64_t number,
                          WireType wire_type);

// Parses a decimal number, or a hexadecimal one behind "0x".
bool ParseUnsigned(std::string_view text, uint64_t* value);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_UNKNOWN_VALUE_H_
