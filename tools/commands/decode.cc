#include <memory>
#include <optional>
#include <sstream>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/formats/json_members.h"
#include "tools/formats/outline.h"
#include "tools/formats/record_csv.h"
#include "tools/formats/text_format.h"
#include "tools/io/batch.h"
#include "tools/record/elements.h"
#include "tools/record/path.h"
#include "tools/record/value_text.h"
#include "tools/wire/escape.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string type;
  std::string format = "text";
  std::vector<std::string> paths;
  std::string each;
  bool defaults = false;
  std::string names = "json";
  bool strict = false;
};

class Decoder : public RecordHandler {
 public:
  Decoder(const Options& options, bool has_several, const CommandIo& io)
      : options_(options),
        has_several_(has_several),
        io_(io),
        style_(io.style()),
        paths_(options.paths, Types(options.type)),
        json_{options.names == "original", options.strict} {
    if (options.each.empty()) return;
    elements_.emplace(options.each, options.paths, Types(options.type));
  }

  std::string Extension() const override {
    if (options_.format == "json") {
      return has_several_ || elements_.has_value() ? ".jsonl" : ".json";
    }
    if (options_.format == "csv") return ".csv";
    return options_.format == "text" ? ".txtpb" : ".txt";
  }

  std::string Header() const override {
    std::ostringstream out;
    if (options_.format == "csv") Csv(&out).WriteHeadings();
    return out.str();
  }

  void Handle(const std::string& name, const std::string& bytes,
              Report* report) const override {
    const Descriptor& type = io_.TypeOf(options_.type, bytes);
    io_.ReportType(name, options_.type, type, report);
    const RecordTree tree = ReadRecord(type, bytes);
    Record record = MakeRecord(tree);
    RemoveDefaults(&record);
    if (options_.defaults) AddDefaults(&record);
    std::ostringstream out;
    if (elements_.has_value()) {
      WriteElements(name, record, tree.fault, &out);
    } else if (options_.format == "csv") {
      Csv(&out).WriteRecord(name, record, tree.ok() ? "" : tree.fault->Text());
    } else if (options_.format == "json") {
      WriteJson(name, record, tree.fault, &out);
    } else {
      if (has_several_) {
        out << style_.Note("# " + EscapeControls(name)) << '\n';
      }
      WriteReadable(record, &out);
    }
    report->output = out.str();
    CommandIo::ReportFault(name, tree.fault, report);
  }

  bool HandleError(const std::string& name, const std::string& error,
                   Report* report) const override {
    if (!has_several_) return false;
    std::ostringstream out;
    WriteError(name, error, &out);
    report->output = out.str();
    return false;
  }

 private:
  static std::vector<const Descriptor*> Types(const std::string& name) {
    const Schema& schema = Schema::BuiltIn();
    if (name.empty()) return schema.roots();
    return {&schema.FindMessage(name)};
  }

  RecordCsv Csv(std::ostream* out) const {
    return Csv(elements_.has_value() ? elements_->paths() : paths_, out);
  }
  RecordCsv Csv(const Paths& paths, std::ostream* out) const {
    RecordCsv csv(paths, json_, out);
    if (elements_.has_value()) csv.SetHasElements();
    return csv;
  }

  // A row or a line of JSON for each element.
  void WriteElements(const std::string& name, const Record& record,
                     const std::optional<Fault>& fault,
                     std::ostream* out) const {
    const std::string error = fault.has_value() ? fault->Text() : "";
    bool has_rows = false;
    elements_->Visit(record, [&](const std::string& element,
                                 const Paths& paths) {
      has_rows = true;
      if (options_.format == "csv") {
        Csv(paths, out).WriteElement(name, element, record, error);
        return;
      }
      Json json = ToJson(paths, record, json_);
      AddFault(fault, &json);
      *out << JsonText({{"file", name}, {"element", element}, {"record", json}},
                       -1)
           << '\n';
    });
    if (!has_rows && fault.has_value()) WriteError(name, error, out);
  }

  // What stands for a record that has no rows.
  void WriteError(const std::string& name, const std::string& error,
                  std::ostream* out) const {
    if (options_.format == "csv") Csv(out).WriteError(name, error);
    if (options_.format == "json") {
      *out << JsonText({{"file", name}, {"error", error}}, -1) << '\n';
    }
  }

  void AddFault(const std::optional<Fault>& fault, Json* json) const {
    if (!fault.has_value() || json_.is_strict) return;
    (*json)[kErrorMember] = ToJson(*fault);
  }

  void WriteReadable(const Record& record, std::ostream* out) const {
    if (paths_.empty()) {
      WriteRecord(record, out);
      return;
    }
    for (const std::optional<Path>& path : paths_.For(*record.type)) {
      if (!path.has_value()) continue;
      for (const Selected& selected : Select(*path, record)) {
        if (selected.message != nullptr) {
          WriteRecord(*selected.message, out);
        } else {
          *out << SelectedText(selected) << '\n';
        }
      }
    }
  }

  void WriteRecord(const Record& record, std::ostream* out) const {
    if (options_.format == "tree") {
      WriteOutline(record, style_, out);
    } else {
      WriteText(record, style_, out);
    }
  }

  // One document, or JSON Lines for several records.
  void WriteJson(const std::string& name, const Record& record,
                 const std::optional<Fault>& fault, std::ostream* out) const {
    if (has_several_ && paths_.empty() && !fault.has_value()) {
      *out << "{\"file\":" << JsonText(name, -1)
           << ",\"record\":" << JsonLine(record, json_) << "}\n";
      return;
    }
    Json json =
        paths_.empty() ? ToJson(record, json_) : ToJson(paths_, record, json_);
    AddFault(fault, &json);
    if (has_several_) {
      *out << JsonText({{"file", name}, {"record", json}}, -1) << '\n';
    } else {
      *out << JsonText(json, 2) << '\n';
    }
  }

  const Options& options_;
  const bool has_several_;
  const CommandIo& io_;
  const Style style_;
  const Paths paths_;
  const JsonOptions json_;
  // With --each.
  std::optional<ElementPaths> elements_;
};

void Decode(const Options& options, Batch* batch, const CommandIo& io) {
  if (!options.each.empty() && options.format != "csv" &&
      options.format != "json") {
    throw UsageError("--each needs --format csv or json");
  }
  batch->FindInputs();
  batch->Run(Decoder(options, batch->HasSeveral(), io));
}

}  // namespace

void AddDecode(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "decode", "Show the values in records, damaged ones included");
  const auto options = std::make_shared<Options>();
  const auto batch = std::make_shared<Batch>(io);
  batch->AddInputs(command);
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
  command
      ->add_option("--each", options->each,
                   "In CSV and JSON a row for each element of this repeated "
                   "field; a --path that begins like it leads to the element")
      ->type_name("PATH");
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
  batch->AddStreamOptions(command);
  io->AddInputOptions(command);
  command->footer(
      "Example:\n"
      "  echo '08 05 10 07' |\n"
      "    vantiro-records decode --hex --type ZAfRoiDimLite -\n\n"
      "Of a damaged record the part before the fault is shown. The fault is\n"
      "written to standard error, and the exit status is 1.");
  command->callback([=] { Decode(*options, batch.get(), *io); });
}

}  // namespace tools
}  // namespace vantiro
