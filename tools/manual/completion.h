// Completion of the program's commands, options and types for bash.

#ifndef VANTIRO_TOOLS_MANUAL_COMPLETION_H_
#define VANTIRO_TOOLS_MANUAL_COMPLETION_H_

#include <CLI/CLI.hpp>
#include <ostream>

namespace vantiro {
namespace tools {

void WriteCompletion(const CLI::App& program, std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_MANUAL_COMPLETION_H_
