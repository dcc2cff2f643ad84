#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "tools/annotation.h"
#include "tools/annotation_page.h"
#include "tools/commands/session.h"
#include "tools/pager.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::string file;
  std::string type;
  std::string page;
};

// The whole page is made before the file is touched, so that a fault leaves an
// older one as it was.
void WritePage(const Options& options, const RecordTree& tree) {
  std::ostringstream page;
  WriteAnnotationPage(tree, options.file == "-" ? "Record" : options.file,
                      &page);
  if (options.page == "-") {
    std::cout << page.str();
    return;
  }
  std::ofstream file(options.page, std::ios::binary);
  file << page.str();
  if (!file.flush()) {
    throw UsageError("cannot write " + options.page + ": " +
                     std::strerror(errno));
  }
}

void Annotate(const Options& options, Session* session) {
  const std::string bytes = session->ReadBytes(options.file);
  const Descriptor& type = session->TypeOf(options.type, bytes);
  session->NoteType(options.file, options.type, type);
  const RecordTree tree = ReadRecord(type, bytes);
  if (options.page.empty()) {
    WritePaged([&](std::ostream* out) {
      WriteAnnotation(tree, session->style(), out);
    });
  } else {
    WritePage(options, tree);
  }
  session->ReportFault(options.file, tree.fault);
}

}  // namespace

void AddAnnotate(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "annotate", "Show every byte of a record beside the field it belongs to");
  const auto options = std::make_shared<Options>();
  Session::AddFile(command, "The record", &options->file);
  Session::AddType(command, "Its type", &options->type);
  command
      ->add_option("--html", options->page,
                   "Write a page for a browser there instead; - is standard "
                   "output")
      ->type_name("OUT");
  session->AddInputOptions(command);
  command->footer(
      "Tag, length and value stand two spaces apart. What is peculiar is "
      "marked\n"
      "with <-. On a terminal it comes by the command in PAGER, or less.\n\n"
      "Example:\n"
      "  echo '08 05 12 04 08 80 01 15' |\n"
      "    vantiro-records annotate --hex --type ZAfSmartRoi -");
  command->callback([=] { Annotate(*options, session); });
}

}  // namespace inspection
}  // namespace vantiro
