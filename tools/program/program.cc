#include "tools/program/program.h"

#include <string>

#include "tools/commands/commands.h"

namespace vantiro {
namespace tools {
namespace {

std::string UsageMessage(const CLI::App* /*program*/, const CLI::Error& error) {
  return std::string("vantiro-records: ") + error.what() + "; see --help\n";
}

}  // namespace

std::unique_ptr<CLI::App> MakeProgram(CommandIo* io) {
  auto program = std::make_unique<CLI::App>(
      "Inspects records of the camera stack's image control: decodes, "
      "compares, identifies and checks them, damaged ones included.",
      "vantiro-records");
  program->require_subcommand(1);
  program->failure_message(UsageMessage);
  program->footer(
      "A file of - is standard input. Exit status: 0 success, 1 differences "
      "or\n"
      "faults found, 2 wrong use. Of several inputs one that fails does not "
      "stop\n"
      "the others; the status is the highest one, and the last line of "
      "standard\n"
      "error counts the failed ones. COMMAND --help shows the command's "
      "options\n"
      "and an example.");
  AddList(program.get(), io);
  AddShow(program.get(), io);
  AddDecode(program.get(), io);
  AddEncode(program.get());
  AddAnnotate(program.get(), io);
  AddDiff(program.get(), io);
  AddStats(program.get(), io);
  AddPlot(program.get(), io);
  AddIdentify(program.get(), io);
  AddCheck(program.get(), io);
  AddSplit(program.get(), io);
  AddScan(program.get(), io);
  return program;
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& program) {
  return program.get_subcommands([](const CLI::App*) { return true; });
}

}  // namespace tools
}  // namespace vantiro
