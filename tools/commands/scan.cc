#include "tools/identify/scan.h"

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>

#include "tools/commands/commands.h"
#include "tools/io/progress.h"
#include "tools/io/table.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string file;
  double min_score = kDefaultScanBits;
};

std::string HexOffset(size_t offset) {
  char text[32];
  std::snprintf(text, sizeof(text), "0x%zx", offset);
  return text;
}

void ScanFile(const Options& options, CommandIo* io) {
  const std::string bytes = io->ReadBytes(options.file);
  Progress progress(bytes.size(), io->quiet());
  const std::vector<Match> matches =
      Scan(Schema::BuiltIn().roots(), bytes, options.min_score,
           [&progress](size_t done) { progress.Show(done); });
  progress.Hide();
  std::vector<Row> rows = {{"offset", "hex", "size", "score", "type"}};
  for (const Match& match : matches) {
    rows.push_back({std::to_string(match.offset), HexOffset(match.offset),
                    std::to_string(match.size),
                    std::to_string(std::lround(std::floor(match.bits))),
                    match.type->full_name()});
  }
  WriteTable(rows, io->style(), &std::cout);
  if (matches.empty()) io->RaiseStatus(kFound);
}

}  // namespace

void AddScan(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "scan", "Find records inside a larger file: an image, a log, a dump");
  const auto options = std::make_shared<Options>();
  CommandIo::AddFile(command, "The file", &options->file);
  command
      ->add_option("--min-score", options->min_score,
                   "Show only records of at least this score (48)")
      ->type_name("BITS");
  io->AddInputOptions(command);
  command->footer(
      "Finds undamaged records of the sixteen roots as the library writes\n"
      "them. The score is that of identify: random bytes reach B at one "
      "offset\n"
      "in 2^B. A lower --min-score finds smaller records, and more false "
      "ones.\n"
      "The exit status is 1 if no record is found.\n\n"
      "Example:\n"
      "  echo '00 ff 77 0d 00 00 80 3f 15 00 00 00 40 18 03' |\n"
      "    vantiro-records scan --hex --min-score 40 -");
  command->callback([=] { ScanFile(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
