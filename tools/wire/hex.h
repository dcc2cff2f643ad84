// Bytes and numbers as hexadecimal text.

#ifndef VANTIRO_TOOLS_WIRE_HEX_H_
#define VANTIRO_TOOLS_WIRE_HEX_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantiro {
namespace tools {

// Lower-case hexadecimal without spaces.
std::string Hex(std::string_view bytes);
// The same with a space between two bytes.
std::string SpacedHex(std::string_view bytes);
// The inverse of Hex: appends to `*bytes`. False if `text` is not hexadecimal.
bool ParseHex(std::string_view text, std::string* bytes);

// "0x0000002a", with the given number of digits.
std::string FixedHex(uint64_t value, size_t digits);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_HEX_H_
