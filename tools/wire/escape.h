// Text that is safe to show.

#ifndef VANTIRO_TOOLS_WIRE_ESCAPE_H_
#define VANTIRO_TOOLS_WIRE_ESCAPE_H_

#include <string>
#include <string_view>

namespace vantiro {
namespace tools {

// `text` with \u escapes, as in "\u202e", for the characters that a terminal
// obeys or that change how the text around them looks: control characters,
// line separators and directional formatting. Bytes that are not UTF-8 become
// \x escapes.
std::string EscapeControls(std::string_view text);
// The same, but line feeds stay.
std::string EscapeControlsInLines(std::string_view text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_ESCAPE_H_
