// The commands of the program, one for each file of this folder.

#ifndef VANTIRO_TOOLS_COMMANDS_COMMANDS_H_
#define VANTIRO_TOOLS_COMMANDS_COMMANDS_H_

#include <CLI/CLI.hpp>

#include "tools/io/command_io.h"

namespace vantiro {
namespace tools {

// Each adds a command to the program. `io` has to outlive the program.
void AddAnnotate(CLI::App* program, CommandIo* io);
void AddCheck(CLI::App* program, CommandIo* io);
void AddDecode(CLI::App* program, CommandIo* io);
void AddDiff(CLI::App* program, CommandIo* io);
void AddEncode(CLI::App* program);
void AddIdentify(CLI::App* program, CommandIo* io);
void AddList(CLI::App* program, CommandIo* io);
void AddPlot(CLI::App* program, CommandIo* io);
void AddScan(CLI::App* program, CommandIo* io);
void AddShow(CLI::App* program, CommandIo* io);
void AddSplit(CLI::App* program, CommandIo* io);
void AddStats(CLI::App* program, CommandIo* io);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_COMMANDS_COMMANDS_H_
