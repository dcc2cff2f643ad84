#include "tools/scan.h"

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>

#include "tools/commands/session.h"
#include "tools/progress.h"
#include "tools/table.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::string file;
  double least = kLeastScanBits;
};

std::string HexOffset(size_t offset) {
  char text[32];
  std::snprintf(text, sizeof(text), "0x%zx", offset);
  return text;
}

void ScanFile(const Options& options, Session* session) {
  const std::string bytes = session->ReadBytes(options.file);
  Progress progress(bytes.size(), session->quiet());
  const std::vector<Find> finds =
      Scan(Schema::BuiltIn().roots(), bytes, options.least,
           [&progress](size_t done) { progress.Show(done); });
  progress.Hide();
  std::vector<Row> rows = {{"offset", "hex", "size", "score", "type"}};
  for (const Find& find : finds) {
    rows.push_back({std::to_string(find.offset), HexOffset(find.offset),
                    std::to_string(find.size),
                    std::to_string(std::lround(std::floor(find.bits))),
                    find.type->full_name()});
  }
  WriteTable(rows, session->style(), &std::cout);
  if (finds.empty()) session->Raise(kFound);
}

}  // namespace

void AddScan(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "scan", "Find records inside a larger file: an image, a log, a dump");
  const auto options = std::make_shared<Options>();
  Session::AddFile(command, "The file", &options->file);
  command
      ->add_option("--least", options->least,
                   "Leave out what scores less, in bits (48)")
      ->type_name("BITS");
  session->AddInputOptions(command);
  command->footer(
      "Finds undamaged records of the sixteen roots, as the library writes\n"
      "them. The score is that of identify: noise reaches B once in 2^B "
      "places.\n"
      "Lower --least to see smaller records, and more that are none. The exit\n"
      "status is 1 if nothing is found.\n\n"
      "Example:\n"
      "  echo '00 ff 77 0d 00 00 80 3f 15 00 00 00 40 18 03' |\n"
      "    vantiro-records scan --hex --least 40 -");
  command->callback([=] { ScanFile(*options, session); });
}

}  // namespace inspection
}  // namespace vantiro
