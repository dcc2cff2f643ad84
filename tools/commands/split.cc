#include "tools/split.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

#include "tools/commands/session.h"
#include "tools/identify.h"
#include "tools/table.h"

namespace vantiro {
namespace inspection {
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

void WriteFile(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) {
    throw UsageError("cannot write " + path.string() + ": " +
                     std::strerror(errno));
  }
}

void SplitFile(const Options& options, Session* session) {
  const std::string bytes = session->ReadBytes(options.file);
  const SplitStream stream = Split(bytes);
  if (!options.folder.empty()) fs::create_directories(options.folder);
  std::vector<Row> rows = {{"record", "offset", "size", "likely type"}};
  for (size_t i = 0; i < stream.records.size(); ++i) {
    const Span& span = stream.records[i];
    const std::string_view record(bytes.data() + span.offset, span.size);
    char name[32];
    std::snprintf(name, sizeof(name), "%06zu.bin", i);
    if (!options.folder.empty()) {
      WriteFile(fs::path(options.folder) / name, record);
    }
    rows.push_back({options.folder.empty() ? std::to_string(i) : name,
                    std::to_string(span.offset), std::to_string(span.size),
                    LikelyType(record)});
  }
  WriteTable(rows, session->style(), &std::cout);
  session->ReportFault(options.file, stream.fault);
}

}  // namespace

void AddSplit(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "split", "Take apart a stream of records behind their lengths");
  const auto options = std::make_shared<Options>();
  Session::AddFile(command, "The stream", &options->file);
  command
      ->add_option(
          "-o,--out", options->folder,
          "Write the records into this folder, as 000000.bin and so on")
      ->type_name("FOLDER");
  session->AddInputOptions(command);
  command->footer(
      "Each record stands behind its length as a varint.\n\n"
      "Example:\n"
      "  echo '02 08 05  04 08 05 10 07' | vantiro-records split --hex -");
  command->callback([=] { SplitFile(*options, session); });
}

}  // namespace inspection
}  // namespace vantiro
