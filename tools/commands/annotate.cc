#include <iostream>
#include <memory>
#include <sstream>

#include "tools/commands/commands.h"
#include "tools/formats/annotation.h"
#include "tools/io/pager.h"
#include "tools/page/annotation_page.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string file;
  std::string type;
  std::string page;
  bool json = false;
};

void WritePage(const Options& options, const RecordTree& tree) {
  std::ostringstream page;
  WriteAnnotationPage(
      tree, options.file == "-" ? "Record" : EscapeControls(options.file),
      &page);
  if (options.page == "-") {
    std::cout << page.str();
    return;
  }
  CommandIo::WriteFile(options.page, page.str());
}

void Annotate(const Options& options, CommandIo* io) {
  const std::string bytes = io->ReadBytes(options.file);
  const Descriptor& type = io->TypeOf(options.type, bytes);
  io->ReportType(options.file, options.type, type);
  const RecordTree tree = ReadRecord(type, bytes);
  if (options.json) {
    WriteAnnotationJson(tree, &std::cout);
  } else if (options.page.empty()) {
    WritePaged(
        [&](std::ostream* out) { WriteAnnotation(tree, io->style(), out); });
  } else {
    WritePage(options, tree);
  }
  io->ReportFault(options.file, tree.fault);
}

}  // namespace

void AddAnnotate(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "annotate", "Show each byte of a record next to its field");
  const auto options = std::make_shared<Options>();
  CommandIo::AddFile(command, "The record", &options->file);
  CommandIo::AddType(command, "Its type; by default the most likely root",
                     &options->type);
  CLI::Option* const json = command->add_flag(
      "--json", options->json, "Write a line of JSON for each field");
  command
      ->add_option("--html", options->page,
                   "Write an HTML page to this file instead; - is standard "
                   "output")
      ->type_name("OUT")
      ->excludes(json);
  io->AddInputOptions(command);
  command->footer(
      "Tag, length and value are two spaces apart. What differs from the\n"
      "library's own encoding, and unusual values, follow <-. On a terminal\n"
      "the output goes through the command in PAGER, or less.\n\n"
      "Example:\n"
      "  echo '08 05 12 04 08 80 01 15' |\n"
      "    vantiro-records annotate --hex --type ZAfSmartRoi -");
  command->callback([=] { Annotate(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
