// The program with all its commands.

#ifndef VANTIRO_TOOLS_COMMANDS_PROGRAM_H_
#define VANTIRO_TOOLS_COMMANDS_PROGRAM_H_

#include <CLI/CLI.hpp>
#include <memory>
#include <vector>

#include "tools/commands/session.h"

namespace vantiro {
namespace inspection {

// Makes the program; its commands answer by `*session`, which outlives it.
std::unique_ptr<CLI::App> MakeProgram(Session* session);

// The commands, in the order in which the help lists them.
std::vector<const CLI::App*> CommandsOf(const CLI::App& program);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_COMMANDS_PROGRAM_H_
