// Output through a pager.

#ifndef VANTIRO_TOOLS_IO_PAGER_H_
#define VANTIRO_TOOLS_IO_PAGER_H_

#include <functional>
#include <ostream>

namespace vantiro {
namespace tools {

// Calls `write` with standard output. On a terminal the output goes through the
// command in PAGER, or `less`, and this returns when that has ended; if there
// is no such command it goes to the terminal directly.
void WritePaged(const std::function<void(std::ostream* out)>& write);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_PAGER_H_
