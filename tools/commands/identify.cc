#include "tools/identify/identify.h"

#include <cmath>
#include <iostream>
#include <memory>

#include "tools/commands/commands.h"
#include "tools/io/table.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string file;
  bool all = false;
  size_t most = 5;
};

std::string BitsText(double bits) {
  return std::to_string(std::lround(std::floor(bits)));
}

void WriteDoubts(const std::vector<Candidate>& candidates) {
  const Candidate& best = candidates.front();
  if (!IsConvincing(best)) {
    std::cout << "No type is likely.\n";
    return;
  }
  std::string names = best.type->full_name();
  size_t count = 1;
  while (count < candidates.size() && IsTie(best, candidates[count])) {
    names += ", " + candidates[count++].type->full_name();
  }
  if (count > 1) std::cout << "Equally likely: " << names << ".\n";
}

void IdentifyFile(const Options& options, CommandIo* io) {
  if (options.most == 0) throw UsageError("--most is at least 1");
  const std::string bytes = io->ReadBytes(options.file);
  const Schema& schema = Schema::BuiltIn();
  const std::vector<Candidate> candidates =
      Identify(options.all ? schema.messages() : schema.roots(), bytes);
  std::vector<Row> rows = {{"score", "known", "type", "reason"}};
  for (const Candidate& candidate : candidates) {
    if (rows.size() > options.most) break;
    rows.push_back({BitsText(candidate.score.bits),
                    std::to_string(candidate.known_percent) + "%",
                    candidate.type->full_name(), candidate.reason});
  }
  WriteTable(rows, io->style(), &std::cout);
  if (!io->quiet()) WriteDoubts(candidates);
  if (!IsConvincing(candidates.front())) io->RaiseStatus(kFound);
}

}  // namespace

void AddIdentify(CLI::App* program, CommandIo* io) {
  CLI::App* const command =
      program->add_subcommand("identify", "List the likely types of a record");
  const auto options = std::make_shared<Options>();
  CommandIo::AddFile(command, "The record", &options->file);
  command->add_flag("--all", options->all,
                    "Consider all types, not only the sixteen roots");
  command->add_option("-n,--most", options->most, "How many types to show (5)")
      ->type_name("COUNT");
  io->AddInputOptions(command);
  command->footer(
      "The score is the number of bits by which knowing the type shortens an\n"
      "encoding of the bytes. Random bytes score below zero, and reach B in "
      "one\n"
      "case of 2^B. The exit status is 1 if no type is likely.\n\n"
      "Example:\n"
      "  echo '0d 00 00 80 3f 15 00 00 00 40 18 03' |\n"
      "    vantiro-records identify --hex -");
  command->callback([=] { IdentifyFile(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
