#include "tools/commands/program.h"

#include <string>

namespace vantiro {
namespace inspection {
namespace {

std::string WrongUse(const CLI::App* /*program*/, const CLI::Error& error) {
  return std::string("vantiro-records: ") + error.what() +
         "; --help tells more\n";
}

}  // namespace

std::unique_ptr<CLI::App> MakeProgram(Session* session) {
  auto program = std::make_unique<CLI::App>(
      "Looks into the records of the camera stack's image control: shows what "
      "they hold, byte by byte if need be, also where they are damaged.",
      "vantiro-records");
  program->require_subcommand(1);
  program->failure_message(WrongUse);
  program->footer(
      "A file of - is standard input. Exit status: 0 fine, 1 differences or\n"
      "faults found, 2 wrong use. COMMAND --help tells more, with an example.");
  AddList(program.get(), session);
  AddShow(program.get(), session);
  AddDecode(program.get(), session);
  AddEncode(program.get(), session);
  AddAnnotate(program.get(), session);
  AddDiff(program.get(), session);
  AddIdentify(program.get(), session);
  AddCheck(program.get(), session);
  AddSplit(program.get(), session);
  AddScan(program.get(), session);
  return program;
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& program) {
  return program.get_subcommands([](const CLI::App*) { return true; });
}

}  // namespace inspection
}  // namespace vantiro
