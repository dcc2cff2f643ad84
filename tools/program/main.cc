// vantiro-records: inspects records.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <string>

#include "tools/formats/format_error.h"
#include "tools/program/program.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

int Report(const std::exception& error, ExitStatus status) {
  std::cout.flush();
  std::cerr << "vantiro-records: " << EscapeControlsInLines(error.what())
            << '\n';
  return status;
}

// CLI11's own message does not name the unknown command.
void CheckCommand(const CLI::App& program, const std::string& name) {
  const auto commands = CommandsOf(program);
  const bool is_command = std::any_of(
      commands.begin(), commands.end(),
      [&name](const CLI::App* command) { return command->get_name() == name; });
  if (!is_command && name[0] != '-') {
    throw UsageError("unknown command " + name + "; see --help");
  }
}

int Run(int argc, char* argv[]) {
  CommandIo io;
  const auto program = MakeProgram(&io);
  try {
    if (argc > 1) CheckCommand(*program, argv[1]);
    program->parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program->exit(error) == 0 ? kSuccess : kWrongUse;
  } catch (const FormatError& error) {
    return Report(error, kFound);
  } catch (const std::exception& error) {
    return Report(error, kWrongUse);
  }
  if (!std::cout.flush()) {
    std::cerr << "vantiro-records: cannot write the output\n";
    return kWrongUse;
  }
  return io.status();
}

}  // namespace
}  // namespace tools
}  // namespace vantiro

int main(int argc, char* argv[]) {
  try {
    std::ios::sync_with_stdio(false);
    return vantiro::tools::Run(argc, argv);
  } catch (...) {
    // The error message itself could not be written.
    return vantiro::tools::kWrongUse;
  }
}
