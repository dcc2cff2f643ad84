// The lines of xxd, hexdump -C, od and similar programs.

#ifndef VANTIRO_TOOLS_IO_DUMP_LINE_H_
#define VANTIRO_TOOLS_IO_DUMP_LINE_H_

#include <cctype>
#include <cstddef>
#include <optional>
#include <string_view>

namespace vantiro {
namespace tools {

// The offsets of dumps have more digits than a byte.
constexpr size_t kMinOffsetDigits = 4;

// A line that begins with an offset.
struct DumpLine {
  // Without 0x.
  std::string_view offset;
  bool has_colon;
  std::string_view bytes;
  // With what stands before it.
  std::string_view characters;
};

// The parts of the line, or none if it cannot begin with an offset.
std::optional<DumpLine> SplitDumpLine(std::string_view line);

// Whether the column of characters, which may be missing, can be that of the
// bytes. Its end may be cut off if it is spaces.
bool AreCharactersOf(std::string_view bytes, std::string_view column);

inline bool IsSpace(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0;
}

inline bool IsHexDigit(char c) {
  return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

// How many hexadecimal digits the text begins with.
size_t CountHexDigits(std::string_view text);

std::string_view TrimRight(std::string_view text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_DUMP_LINE_H_
