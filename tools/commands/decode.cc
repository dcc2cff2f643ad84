#include <iostream>
#include <memory>
#include <optional>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/formats/json_members.h"
#include "tools/formats/outline.h"
#include "tools/formats/record_csv.h"
#include "tools/formats/text_format.h"
#include "tools/io/progress.h"
#include "tools/record/path.h"
#include "tools/record/value_text.h"
#include "tools/wire/escape.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::vector<std::string> files;
  std::string type;
  std::string format = "text";
  std::vector<std::string> paths;
  bool defaults = false;
  std::string names = "json";
  bool strict = false;
};

class Decoder {
 public:
  Decoder(const Options& options, CommandIo* io)
      : options_(options),
        io_(*io),
        style_(io->style()),
        paths_(options.paths, Types(options.type)),
        json_{options.names == "original", options.strict},
        csv_(paths_, json_, &std::cout) {}

  void Run() {
    if (options_.format == "csv") csv_.WriteHeadings();
    Progress progress(options_.files.size(), io_.quiet());
    for (size_t i = 0; i < options_.files.size(); ++i) {
      progress.Hide();
      try {
        Decode(options_.files[i]);
      } catch (const UsageError& error) {
        // The other files are still shown.
        if (!HasSeveralFiles()) throw;
        WriteUnread(options_.files[i], error.what());
      }
      progress.Show(i + 1);
    }
  }

 private:
  static std::vector<const Descriptor*> Types(const std::string& name) {
    const Schema& schema = Schema::BuiltIn();
    if (name.empty()) return schema.roots();
    return {&schema.FindMessage(name)};
  }

  bool HasSeveralFiles() const { return options_.files.size() > 1; }

  void Decode(const std::string& file) {
    const std::string bytes = io_.ReadBytes(file);
    const Descriptor& type = io_.TypeOf(options_.type, bytes);
    io_.ReportType(file, options_.type, type);
    const RecordTree tree = ReadRecord(type, bytes);
    Record record = MakeRecord(tree);
    RemoveDefaults(&record);
    if (options_.defaults) AddDefaults(&record);
    if (options_.format == "csv") {
      csv_.WriteRecord(file, record, tree.ok() ? "" : tree.fault->Text());
    } else if (options_.format == "json") {
      WriteJson(file, record, tree.fault);
    } else {
      if (HasSeveralFiles()) {
        std::cout << style_.Note("# " + EscapeControls(file)) << '\n';
      }
      WriteReadable(record);
    }
    io_.ReportFault(file, tree.fault);
  }

  void WriteUnread(const std::string& file, const std::string& error) {
    if (options_.format == "csv") csv_.WriteError(file, error);
    if (options_.format == "json") {
      std::cout << JsonText({{"file", file}, {"error", error}}, -1) << '\n';
    }
    std::cout.flush();
    std::cerr << "vantiro-records: " << error << '\n';
    io_.RaiseStatus(kWrongUse);
  }

  void WriteReadable(const Record& record) const {
    if (paths_.empty()) {
      WriteRecord(record);
      return;
    }
    for (const std::optional<Path>& path : paths_.For(*record.type)) {
      if (!path.has_value()) continue;
      for (const Selected& selected : Select(*path, record)) {
        if (selected.message != nullptr) {
          WriteRecord(*selected.message);
        } else {
          std::cout << SelectedText(selected) << '\n';
        }
      }
    }
  }

  void WriteRecord(const Record& record) const {
    if (options_.format == "tree") {
      WriteOutline(record, style_, &std::cout);
    } else {
      WriteText(record, style_, &std::cout);
    }
  }

  // One document, or JSON Lines for several files.
  void WriteJson(const std::string& file, const Record& record,
                 const std::optional<Fault>& fault) const {
    Json json =
        paths_.empty() ? ToJson(record, json_) : ToJson(paths_, record, json_);
    if (fault.has_value() && !json_.is_strict) {
      json[kErrorMember] = ToJson(*fault);
    }
    if (HasSeveralFiles()) {
      std::cout << JsonText({{"file", file}, {"record", json}}, -1) << '\n';
    } else {
      std::cout << JsonText(json, 2) << '\n';
    }
  }

  const Options& options_;
  CommandIo& io_;
  const Style style_;
  const Paths paths_;
  const JsonOptions json_;
  RecordCsv csv_;
};

}  // namespace

void AddDecode(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "decode", "Show the values in records, damaged ones included");
  const auto options = std::make_shared<Options>();
  CommandIo::AddFiles(command, &options->files);
  CommandIo::AddType(command,
                     "The records' type; by default the most likely root",
                     &options->type);
  command
      ->add_option("-f,--format", options->format,
                   "text or json, which encode reads; tree, an outline; csv, a "
                   "row for each value, with --path for each file")
      ->check(CLI::IsMember({"text", "json", "tree", "csv"}))
      ->type_name("FORMAT");
  command
      ->add_option("-p,--path", options->paths,
                   "Show only the values of this path, as in a.b[2].c; may be "
                   "given again")
      ->type_name("PATH")
      ->allow_extra_args(false);
  command->add_flag("--defaults", options->defaults,
                    "Show also fields with their default value");
  command
      ->add_option("--names", options->names,
                   "The names of fields in JSON: json (camel case) or original "
                   "(those of the schema); encode reads both")
      ->check(CLI::IsMember({"json", "original"}))
      ->type_name("NAMES");
  command->add_flag("--strict", options->strict,
                    "Leave out of JSON what other programs do not know: the "
                    "members @unknown, @nan, @not_utf8 and @error");
  io->AddInputOptions(command);
  command->footer(
      "Example:\n"
      "  echo '08 05 10 07' |\n"
      "    vantiro-records decode --hex --type ZAfRoiDimLite -\n\n"
      "Of a damaged record the part before the fault is shown. The fault is\n"
      "written to standard error, and the exit status is 1.");
  command->callback([=] { Decoder(*options, io).Run(); });
}

}  // namespace tools
}  // namespace vantiro
