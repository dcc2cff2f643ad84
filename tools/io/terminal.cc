#include "tools/io/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace vantiro {
namespace tools {

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

bool IsCursorTerminal(std::FILE* stream) {
  const char* const type = std::getenv("TERM");
  return IsTerminal(stream) && type != nullptr &&
         std::string_view(type) != "dumb";
}

size_t TerminalWidth(std::FILE* stream) {
  if (const char* const columns = std::getenv("COLUMNS")) {
    const std::string_view text = columns;
    size_t width = 0;
    std::from_chars(text.data(), text.data() + text.size(), width);
    if (width > 0) return width;
  }
  winsize size = {};
  if (ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    return size.ws_col;
  }
  return 80;
}

}  // namespace tools
}  // namespace vantiro
