#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>

#include "tools/commands/commands.h"
#include "tools/identify/identify.h"
#include "tools/io/table.h"
#include "tools/wire/delimited.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string file;
  std::string folder;
};

std::string LikelyType(std::string_view bytes) {
  const Candidate best = Identify(Schema::BuiltIn().roots(), bytes).front();
  return IsConvincing(best) ? best.type->full_name() : "?";
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    throw UsageError("cannot create " + EscapeControls(folder) + ": " +
                     error.message());
  }
}

void SplitFile(const Options& options, CommandIo* io) {
  const std::string bytes = io->ReadBytes(options.file);
  const DelimitedStream stream = ReadDelimited(bytes);
  if (!options.folder.empty()) MakeFolder(options.folder);
  std::vector<Row> rows = {{"record", "offset", "size", "likely type"}};
  for (size_t i = 0; i < stream.records.size(); ++i) {
    const Span& span = stream.records[i];
    const std::string_view record(bytes.data() + span.offset, span.size);
    char name[32];
    std::snprintf(name, sizeof(name), "%06zu.bin", i);
    if (!options.folder.empty()) {
      CommandIo::WriteFile(fs::path(options.folder) / name, record);
    }
    rows.push_back({options.folder.empty() ? std::to_string(i) : name,
                    std::to_string(span.offset), std::to_string(span.size),
                    LikelyType(record)});
  }
  WriteTable(rows, io->style(), &std::cout);
  io->ReportFault(options.file, stream.fault);
}

}  // namespace

void AddSplit(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "split", "Split a stream of length-delimited records");
  const auto options = std::make_shared<Options>();
  CommandIo::AddFile(command, "The stream", &options->file);
  command
      ->add_option("-o,--out", options->folder,
                   "Write the records to files in this folder: 000000.bin, ...")
      ->type_name("FOLDER");
  io->AddInputOptions(command);
  command->footer(
      "Each record follows its length, which is a varint.\n\n"
      "Example:\n"
      "  echo '02 08 05  04 08 05 10 07' | vantiro-records split --hex -");
  command->callback([=] { SplitFile(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
