// Checks of unknown fields in text and JSON.

#ifndef VANTIRO_TOOLS_FORMATS_UNKNOWN_VALUE_H_
#define VANTIRO_TOOLS_FORMATS_UNKNOWN_VALUE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

// Why a message of `type` cannot have an unknown field of that number and wire
// type; empty if it can. `type` is null in a group, where every field is
// unknown.
std::string WhyNotUnknown(const Descriptor* type, uint64_t number,
                          WireType wire_type);

// Parses a decimal number, or a hexadecimal one after "0x".
bool ParseUnsigned(std::string_view text, uint64_t* value);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_UNKNOWN_VALUE_H_
