// What is known of a terminal.

#ifndef VANTIRO_TOOLS_IO_TERMINAL_H_
#define VANTIRO_TOOLS_IO_TERMINAL_H_

#include <cstddef>
#include <cstdio>

namespace vantiro {
namespace tools {

bool IsTerminal(std::FILE* stream);
// Whether it can also move its cursor and show colours: TERM is not "dumb".
bool IsCursorTerminal(std::FILE* stream);
// Its columns: those of COLUMNS, or what the terminal says, or 80.
size_t TerminalWidth(std::FILE* stream);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_TERMINAL_H_
