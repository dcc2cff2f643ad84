// Long output on a terminal, a screenful at a time.

#ifndef VANTIRO_TOOLS_PAGER_H_
#define VANTIRO_TOOLS_PAGER_H_

#include <functional>
#include <ostream>

namespace vantiro {
namespace inspection {

// Lets `write` write to standard output. If that is a terminal, what is written
// goes there through the command in PAGER, or `less`, and this returns when the
// reader has closed it; without such a command it goes there directly.
void WritePaged(const std::function<void(std::ostream* out)>& write);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PAGER_H_
