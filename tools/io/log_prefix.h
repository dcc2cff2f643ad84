// The lines of Android's log.

#ifndef VANTIRO_TOOLS_IO_LOG_PREFIX_H_
#define VANTIRO_TOOLS_IO_LOG_PREFIX_H_

#include <cstddef>
#include <string_view>

namespace vantiro {
namespace tools {

// The size of what stands before the message in a line of the log, in any of
// the formats of `logcat -v` and in that of Android Studio; 0 if the line is
// not one of a log.
size_t LogPrefixSize(std::string_view line);

// "--------- beginning of main"
bool IsLogDivider(std::string_view line);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_LOG_PREFIX_H_
