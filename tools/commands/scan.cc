#include "tools/identify/scan.h"

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "tools/commands/commands.h"
#include "tools/io/mapped_file.h"
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
  const MappedFile mapped(io->decodes() ? "" : options.file);
  const std::string read =
      mapped.is_mapped() ? "" : io->ReadBytes(options.file);
  const std::string_view bytes = mapped.is_mapped() ? mapped.bytes() : read;
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
                   "Show only records of at least this score (64)")
      ->type_name("BITS");
  io->AddInputOptions(command);
  command->footer(
      "Finds undamaged records of the sixteen roots as the library writes\n"
      "them. The score says by how many bits a record explains the bytes "
      "better\n"
      "than the file around them does. A lower --min-score finds smaller "
      "records,\n"
      "and more false ones. A string or a packed run adds little, since text "
      "and\n"
      "tables of numbers are in many files: a record that is one string is "
      "not\n"
      "found. The exit status is 1 if no record is found.\n\n"
      "Example:\n"
      "  echo '00 ff 77 0d 00 00 80 3f 15 00 00 00 40 18 03' |\n"
      "    vantiro-records scan --hex --min-score 40 -");
  command->callback([=] { ScanFile(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
