// The program with all its commands.

#ifndef VANTIRO_TOOLS_PROGRAM_PROGRAM_H_
#define VANTIRO_TOOLS_PROGRAM_PROGRAM_H_

#include <CLI/CLI.hpp>
#include <memory>
#include <vector>

#include "tools/io/command_io.h"

namespace vantiro {
namespace tools {

// Makes the program with all commands, in the order of the help. `io` has to
// outlive it.
std::unique_ptr<CLI::App> MakeProgram(CommandIo* io);

// The commands, in the same order.
std::vector<const CLI::App*> CommandsOf(const CLI::App& program);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PROGRAM_PROGRAM_H_
