#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/difference_writer.h"
#include "tools/io/output_file.h"
#include "tools/page/difference_page.h"
#include "tools/record/difference.h"
#include "tools/record/path.h"
#include "tools/record/record.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

namespace fs = std::filesystem;

struct Options {
  std::string before;
  std::string after;
  std::string type;
  std::vector<std::string> ignored;
  ComparisonOptions comparison;
  bool unified = false;
  bool json = false;
  std::string page;
};

// Writes to a stream that gives all to an OutputFile.
class PageStream : public std::streambuf {
 public:
  explicit PageStream(OutputFile* file) : file_(*file) {}

 protected:
  int overflow(int c) override {
    const char byte = static_cast<char>(c);
    if (c != traits_type::eof()) file_.Write({&byte, 1});
    return c;
  }
  std::streamsize xsputn(const char* bytes, std::streamsize size) override {
    file_.Write({bytes, static_cast<size_t>(size)});
    return size;
  }

 private:
  OutputFile& file_;
};

// The files in a folder, by their paths within it.
std::set<std::string> FilesIn(const std::string& folder) {
  std::set<std::string> files;
  std::error_code error;
  for (fs::recursive_directory_iterator i(folder, error), end;
       !error && i != end; i.increment(error)) {
    std::error_code not_there;
    if (i->is_directory(not_there)) continue;
    files.insert(i->path().lexically_relative(folder).string());
  }
  if (error) {
    throw UsageError("cannot read " + EscapeControls(folder) + ": " +
                     error.message());
  }
  return files;
}

class RecordComparer {
 public:
  RecordComparer(const Options& options, DifferenceWriter* writer,
                 CommandIo* io)
      : options_(options), writer_(*writer), io_(*io) {
    comparison_ = options.comparison;
    comparison_.has_same = writer->TakesSame();
    if (options.ignored.empty()) return;
    const Schema& schema = Schema::BuiltIn();
    for (const std::string& path : options.ignored) {
      if (path.back() != ']') continue;
      throw UsageError("--ignore takes a field and not one element: " + path);
    }
    ignored_.emplace(options.ignored,
                     options.type.empty()
                         ? schema.roots()
                         : Messages{&schema.FindMessage(options.type)});
  }

  void CompareFiles(const std::string& before_file,
                    const std::string& after_file) {
    const std::string before = io_.ReadBytes(before_file);
    const std::string after = io_.ReadBytes(after_file);
    const Descriptor& type = io_.TypeOf(options_.type, before);
    io_.ReportType(before_file, options_.type, type);
    const DecodedRecord before_record = RecordOf(type, before);
    const DecodedRecord after_record = RecordOf(type, after);
    writer_.Begin({before_file, after_file, type.full_name(),
                   before_record.fault, after_record.fault});
    Compare(before_record.record, after_record.record, comparison_,
            [this](const Difference& difference) {
              if (difference.kind != Difference::kSame) {
                io_.RaiseStatus(kFound);
              }
              writer_.Write(difference);
            });
    writer_.End();
    io_.ReportFault(before_file, before_record.fault);
    io_.ReportFault(after_file, after_record.fault);
  }

  // Files of the same name. One that cannot be compared does not stop the
  // others.
  void CompareFolders(const std::string& before, const std::string& after) {
    const std::set<std::string> before_files = FilesIn(before);
    const std::set<std::string> after_files = FilesIn(after);
    std::set<std::string> files = before_files;
    files.insert(after_files.begin(), after_files.end());
    size_t failed = 0;
    for (const std::string& file : files) {
      if (before_files.count(file) + after_files.count(file) == 1) {
        writer_.WriteLone(file, before_files.count(file) == 1);
        io_.RaiseStatus(kFound);
      } else if (!TryCompare(fs::path(before) / file, fs::path(after) / file)) {
        ++failed;
      }
    }
    if (failed == 0) return;
    std::cout.flush();
    std::cerr << "vantiro-records: " << failed << " of " << files.size()
              << " files not compared\n";
  }

 private:
  bool TryCompare(const std::string& before, const std::string& after) {
    try {
      CompareFiles(before, after);
      return true;
    } catch (const std::exception& error) {
      writer_.WriteError(before, after, error.what());
      std::cout.flush();
      std::cerr << "vantiro-records: " << EscapeControls(before) << ": "
                << EscapeControlsInLines(error.what()) << '\n';
      io_.RaiseStatus(kWrongUse);
      return false;
    }
  }

  DecodedRecord RecordOf(const Descriptor& type,
                         const std::string& bytes) const {
    DecodedRecord decoded = DecodeRecord(type, bytes);
    RemoveDefaults(&decoded.record);
    if (!ignored_.has_value()) return decoded;
    for (const std::optional<Path>& path : ignored_->For(type)) {
      if (path.has_value()) RemoveField(*path, &decoded.record);
    }
    return decoded;
  }

  const Options& options_;
  DifferenceWriter& writer_;
  CommandIo& io_;
  ComparisonOptions comparison_;
  std::optional<Paths> ignored_;
};

void CompareInputs(const Options& options, DifferenceWriter* writer,
                   CommandIo* io) {
  RecordComparer comparer(options, writer, io);
  if (fs::is_directory(options.before) && fs::is_directory(options.after)) {
    comparer.CompareFolders(options.before, options.after);
  } else {
    comparer.CompareFiles(options.before, options.after);
  }
  writer->Finish();
}

void WritePage(const Options& options, CommandIo* io) {
  const std::string title =
      EscapeControls(options.before) + " and " + EscapeControls(options.after);
  if (options.page == "-") {
    CompareInputs(options, MakeDifferencePage(title, &std::cout).get(), io);
    return;
  }
  OutputFile file(options.page);
  PageStream buffer(&file);
  std::ostream out(&buffer);
  CompareInputs(options, MakeDifferencePage(title, &out).get(), io);
  file.Commit();
}

void Diff(const Options& options, CommandIo* io) {
  if (options.before == "-" && options.after == "-") {
    throw UsageError("only one of the records can be standard input");
  }
  if (!(options.comparison.tolerance >= 0)) {
    throw UsageError("--tolerance is negative");
  }
  if (!options.page.empty()) {
    WritePage(options, io);
    return;
  }
  std::ostringstream nothing;
  std::ostream* const out = io->quiet() ? &nothing : &std::cout;
  const Style style = io->style();
  const bool has_several = fs::is_directory(options.before);
  CompareInputs(
      options,
      (options.json      ? MakeDifferenceJson(&std::cout)
       : options.unified ? MakeUnifiedDifference(style, out)
                         : MakeDifferenceLines(has_several, style, out))
          .get(),
      io);
}

}  // namespace

void AddDiff(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "diff", "Compare two records, or the records in two folders");
  const auto options = std::make_shared<Options>();
  command
      ->add_option("before", options->before,
                   "A record, - is standard input; or a folder")
      ->required()
      ->type_name("A");
  command->add_option("after", options->after, "The other one")
      ->required()
      ->type_name("B");
  CommandIo::AddType(command,
                     "The records' type; by default the most likely root",
                     &options->type);
  command
      ->add_option("--tolerance", options->comparison.tolerance,
                   "Up to this difference floats are equal")
      ->type_name("X");
  command
      ->add_option("--ignore", options->ignored,
                   "Do not compare this field, as in a.b.c; may be given again")
      ->type_name("PATH")
      ->allow_extra_args(false);
  command->add_flag("--by-index", options->comparison.by_index,
                    "Compare elements of repeated fields by their index, and "
                    "not those that are most alike");
  CLI::Option* const unified =
      command->add_flag("-u,--unified", options->unified,
                        "Write hunks as diff -u does, a line for each value");
  CLI::Option* const json =
      command
          ->add_flag("--json", options->json,
                     "Write a line of JSON for each pair of records")
          ->excludes(unified);
  command
      ->add_option("--html", options->page,
                   "Write an HTML page, side by side, to this file; - is "
                   "standard output")
      ->type_name("OUT")
      ->excludes(unified)
      ->excludes(json);
  io->AddInputOptions(command);
  command->footer(
      "+ is only in B, - only in A, ~ differs. Files in folders are compared\n"
      "with those of the same name. An index that is not the same in both\n"
      "records is [2->3]. --quiet shows nothing. The exit status is 1 if the\n"
      "records differ.\n\n"
      "The time to match elements grows with their number, not its square:\n"
      "elements more than 32 places apart are matched only if they are equal,\n"
      "and unlike all others in lists of together 65536 at most.\n\n"
      "Example:\n"
      "  printf '08 05 10 07' >a.hex; printf '08 06 18 01' >b.hex\n"
      "  vantiro-records diff --hex --type ZAfRoiDimLite a.hex b.hex");
  command->callback([=] { Diff(*options, io); });
}

}  // namespace tools
}  // namespace vantiro
