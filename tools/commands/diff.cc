#include <iostream>
#include <memory>

#include "tools/commands/commands.h"
#include "tools/record/difference.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {
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

void Diff(const Options& options, CommandIo* io) {
  if (options.before == "-" && options.after == "-") {
    throw UsageError("only one of the records can be standard input");
  }
  if (!(options.tolerance >= 0)) throw UsageError("--tolerance is negative");
  const std::string before = io->ReadBytes(options.before);
  const std::string after = io->ReadBytes(options.after);
  const Descriptor& type = io->TypeOf(options.type, before);
  io->ReportType(options.before, options.type, type);
  DecodedRecord before_record = DecodeRecord(type, before);
  DecodedRecord after_record = DecodeRecord(type, after);
  RemoveDefaults(&before_record.record);
  RemoveDefaults(&after_record.record);
  const auto differences =
      Compare(before_record.record, after_record.record, options.tolerance);
  if (!differences.empty()) io->RaiseStatus(kFound);
  if (!io->quiet()) {
    for (const Difference& difference : differences) {
      std::cout << Line(difference, io->style()) << '\n';
    }
  }
  io->ReportFault(options.before, before_record.fault);
  io->ReportFault(options.after, after_record.fault);
}

}  // namespace

void AddDiff(CLI::App* program, CommandIo* io) {
  CLI::App* const command =
      program->add_subcommand("diff", "Compare two records field by field");
  const auto options = std::make_shared<Options>();
  command
      ->add_option("before", options->before, "A record; - is standard input")
      ->required()
      ->type_name("A");
  command->add_option("after", options->after, "The other one")
      ->required()
      ->type_name("B");
  CommandIo::AddType(command,
                     "The records' type; by default the most likely root",
                     &options->type);
  command
      ->add_option("--tolerance", options->tolerance,
                   "Up to this difference floats are equal")
      ->type_name("X");
  io->AddInputOptions(command);
  command->footer(
      "+ is only in B, - only in A, ~ differs. --quiet shows nothing. The "
      "exit\n"
      "status is 1 if the records differ.\n\n"
      "Example:\n"
      "  printf '08 05 10 07' >a.hex; printf '08 06 18 01' >b.hex\n"
      "  vantiro-records diff --hex --type ZAfRoiDimLite a.hex b.hex");
  command->callback([=] { Diff(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
