// Bytes that are written as hexadecimal text.

#ifndef VANTIRO_TOOLS_IO_HEX_TEXT_H_
#define VANTIRO_TOOLS_IO_HEX_TEXT_H_

#include <stdexcept>
#include <string>
#include <string_view>

namespace vantiro {
namespace tools {

// The text cannot be read without a doubt; `what` says where and why.
class HexError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

// The bytes of `text`, which is one of:
//   - hexadecimal digits, two for a byte, with white space, commas, colons or
//     hyphens between bytes, and 0x or \x before bytes or 0x before all;
//   - an array or string literal of C, Java or Python;
//   - the output of xxd, hexdump -C or od -tx1, with offsets, columns of
//     characters, and * for repeated lines; the characters have to be those of
//     the bytes;
//   - one of these in the lines of a log of Android.
// Throws a HexError.
std::string ReadHexText(std::string_view text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_HEX_TEXT_H_
