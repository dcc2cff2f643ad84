#include <iostream>
#include <memory>

#include "tools/commands/session.h"
#include "tools/difference.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::string before;
  std::string after;
  std::string type;
  double tolerance = 0;
};

std::string Line(const Difference& difference, const Style& style) {
  const std::string& path = difference.path;
  switch (difference.kind) {
    case Difference::kAdded:
      return style.Added("+ " + path + ": " + difference.after);
    case Difference::kRemoved:
      return style.Removed("- " + path + ": " + difference.before);
    default:
      return "~ " + style.Name(path) + ": " + style.Removed(difference.before) +
             " -> " + style.Added(difference.after);
  }
}

void Diff(const Options& options, Session* session) {
  if (options.before == "-" && options.after == "-") {
    throw UsageError("only one of the two can be standard input");
  }
  const std::string before = session->ReadBytes(options.before);
  const std::string after = session->ReadBytes(options.after);
  const Descriptor& type = session->TypeOf(options.type, before);
  session->NoteType(options.before, options.type, type);
  const RecordTree before_tree = ReadRecord(type, before);
  const RecordTree after_tree = ReadRecord(type, after);
  Record before_record = MakeRecord(before_tree);
  Record after_record = MakeRecord(after_tree);
  DropZeros(&before_record);
  DropZeros(&after_record);
  const auto differences =
      Compare(before_record, after_record, options.tolerance);
  if (!differences.empty()) session->Raise(kFound);
  if (!session->quiet()) {
    for (const Difference& difference : differences) {
      std::cout << Line(difference, session->style()) << '\n';
    }
  }
  session->ReportFault(options.before, before_tree.fault);
  session->ReportFault(options.after, after_tree.fault);
}

}  // namespace

void AddDiff(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "diff", "Compare two records field by field; exit status 0 if equal");
  const auto options = std::make_shared<Options>();
  command
      ->add_option("before", options->before, "A record; - is standard input")
      ->required()
      ->type_name("A");
  command->add_option("after", options->after, "The other one")
      ->required()
      ->type_name("B");
  Session::AddType(command, "The records' type", &options->type);
  command
      ->add_option("--tolerance", options->tolerance,
                   "How far floats may lie apart and count as equal")
      ->check(CLI::NonNegativeNumber)
      ->type_name("X");
  session->AddInputOptions(command);
  command->footer(
      "+ is only in B, - only in A, ~ in both and unlike. --quiet shows "
      "nothing\n"
      "and leaves it to the exit status.\n\n"
      "Example:\n"
      "  printf '08 05 10 07' >a.hex; printf '08 06 18 01' >b.hex\n"
      "  vantiro-records diff --hex --type ZAfRoiDimLite a.hex b.hex");
  command->callback([=] { Diff(*options, session); });
}

}  // namespace inspection
}  // namespace vantiro
