// vantiro-records: looks into records.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <string>

#include "tools/commands/program.h"
#include "tools/formats.h"

namespace vantiro {
namespace inspection {
namespace {

int Say(const std::exception& error, ExitStatus status) {
  std::cout.flush();
  std::cerr << "vantiro-records: " << error.what() << '\n';
  return status;
}

// The parser's own message for an unknown command names none.
void CheckCommand(const CLI::App& program, const std::string& name) {
  const auto commands = CommandsOf(program);
  const bool is_command = std::any_of(
      commands.begin(), commands.end(),
      [&name](const CLI::App* command) { return command->get_name() == name; });
  if (!is_command && name[0] != '-') {
    throw UsageError("there is no command " + name + "; --help lists them");
  }
}

int Run(int argc, char* argv[]) {
  Session session;
  const auto program = MakeProgram(&session);
  try {
    if (argc > 1) CheckCommand(*program, argv[1]);
    program->parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program->exit(error) == 0 ? kFine : kWrongUse;
  } catch (const FormatError& error) {
    return Say(error, kFound);
  } catch (const std::exception& error) {
    return Say(error, kWrongUse);
  }
  if (!std::cout.flush()) {
    std::cerr << "vantiro-records: the output cannot be written\n";
    return kWrongUse;
  }
  return session.status();
}

}  // namespace
}  // namespace inspection
}  // namespace vantiro

int main(int argc, char* argv[]) {
  try {
    std::ios::sync_with_stdio(false);
    return vantiro::inspection::Run(argc, argv);
  } catch (...) {
    // Only where not even the message of a fault can be written.
    return vantiro::inspection::kWrongUse;
  }
}
