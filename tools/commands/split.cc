#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
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
  bool json = false;
};

// Null if no root is likely.
const Descriptor* LikelyType(std::string_view bytes) {
  const Candidate best = Identify(Schema::BuiltIn().roots(), bytes).front();
  return IsConvincing(best) ? best.type : nullptr;
}

std::string FileName(size_t index) {
  char name[32];
  std::snprintf(name, sizeof(name), "%06zu.bin", index);
  return name;
}

// A record's row, or its line of JSON.
class Listing {
 public:
  Listing(const Options& options, const Style& style)
      : options_(options), style_(style) {}

  void Add(size_t index, const Span& span, const Descriptor* type) {
    const bool is_written = !options_.folder.empty();
    if (options_.json) {
      Json json = {
          {"record", index}, {"offset", span.offset}, {"size", span.size}};
      if (type != nullptr) json["likely_type"] = type->full_name();
      if (is_written) json["file"] = FileName(index);
      std::cout << JsonText(json, -1) << '\n';
      return;
    }
    rows_.push_back({is_written ? FileName(index) : std::to_string(index),
                     std::to_string(span.offset), std::to_string(span.size),
                     type != nullptr ? type->full_name() : "?"});
  }

  void Finish() const {
    if (!options_.json) WriteTable(rows_, style_, &std::cout);
  }

 private:
  const Options& options_;
  const Style style_;
  std::vector<Row> rows_ = {{"record", "offset", "size", "likely type"}};
};

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
  Listing listing(options, io->style());
  for (size_t i = 0; i < stream.records.size(); ++i) {
    const Span& span = stream.records[i];
    const std::string_view record(bytes.data() + span.offset, span.size);
    if (!options.folder.empty()) {
      CommandIo::WriteFile(fs::path(options.folder) / FileName(i), record);
    }
    listing.Add(i, span, LikelyType(record));
  }
  listing.Finish();
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
  command->add_flag("--json", options->json,
                    "Write a line of JSON for each record");
  io->AddInputOptions(command);
  command->footer(
      "Each record follows its length, which is a varint.\n\n"
      "Example:\n"
      "  echo '02 08 05  04 08 05 10 07' | vantiro-records split --hex -");
  command->callback([=] { SplitFile(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
