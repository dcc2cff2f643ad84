// What bash needs to complete the program's commands, options and types.

#ifndef VANTIRO_TOOLS_MANUAL_COMPLETION_H_
#define VANTIRO_TOOLS_MANUAL_COMPLETION_H_

#include <CLI/CLI.hpp>
#include <ostream>

namespace vantiro {
namespace inspection {

void WriteCompletion(const CLI::App& program, std::ostream* out);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_MANUAL_COMPLETION_H_
