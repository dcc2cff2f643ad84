#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/formats/outline.h"
#include "tools/formats/record_csv.h"
#include "tools/formats/string_stream.h"
#include "tools/formats/text_format.h"
#include "tools/io/batch.h"
#include "tools/record/elements.h"
#include "tools/record/path.h"
#include "tools/record/record.h"
#include "tools/record/value_text.h"
#include "tools/wire/escape.h"

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
    std::string text;
    if (options_.format == "csv") Csv(&text).AddHeadings();
    return text;
  }

  void Handle(const std::string& name, const std::string& bytes,
              Report* report) const override {
    const Descriptor& type = io_.TypeOf(options_.type, bytes);
    io_.ReportType(name, options_.type, type, report);
    DecodedRecord decoded = DecodeRecord(type, bytes);
    Record& record = decoded.record;
    const std::optional<Fault>& fault = decoded.fault;
    RemoveDefaults(&record);
    if (options_.defaults) AddDefaults(&record);
    // JSON in a line has about this size.
    if (has_several_) report->output.reserve(8 * bytes.size());
    if (elements_.has_value()) {
      WriteElements(name, record, fault, &report->output);
    } else if (options_.format == "csv") {
      Csv(&report->output)
          .AddRecord(name, record, fault.has_value() ? fault->Text() : "");
    } else if (options_.format == "json") {
      WriteJson(name, record, fault, &report->output);
    } else {
      StringStream out(&report->output);
      if (has_several_) {
        out << style_.Note("# " + EscapeControls(name)) << '\n';
      }
      WriteReadable(record, &out);
    }
    CommandIo::ReportFault(name, fault, report);
  }

  bool HandleError(const std::string& name, const std::string& error,
                   Report* report) const override {
    if (!has_several_) return false;
    WriteError(name, error, &report->output);
    return false;
  }

 private:
  static std::vector<const Descriptor*> Types(const std::string& name) {
    const Schema& schema = Schema::BuiltIn();
    if (name.empty()) return schema.roots();
    return {&schema.FindMessage(name)};
  }

  RecordCsv Csv(std::string* text) const {
    return Csv(elements_.has_value() ? elements_->paths() : paths_, text);
  }
  RecordCsv Csv(const Paths& paths, std::string* text) const {
    RecordCsv csv(paths, json_, text);
    if (elements_.has_value()) csv.SetHasElements();
    return csv;
  }

  // A row or a line of JSON for each element.
  void WriteElements(const std::string& name, const Record& record,
                     const std::optional<Fault>& fault,
                     std::string* text) const {
    const std::string error = fault.has_value() ? fault->Text() : "";
    bool has_rows = false;
    elements_->Visit(
        record, [&](const std::string& element, const Paths& paths) {
          has_rows = true;
          if (options_.format == "csv") {
            Csv(paths, text).AddElement(name, element, record, error);
            return;
          }
          JsonPrinter out(-1, text);
          out.BeginObject();
          out.PlainKey("file");
          out.String(name);
          out.PlainKey("element");
          out.String(element);
          out.PlainKey("record");
          WriteObject(paths, record, fault, &out);
          out.EndObject();
          *text += '\n';
        });
    if (!has_rows && fault.has_value()) WriteError(name, error, text);
  }

  // What stands for a record that has no rows.
  void WriteError(const std::string& name, const std::string& error,
                  std::string* text) const {
    if (options_.format == "csv") Csv(text).AddError(name, error);
    if (options_.format == "json") {
      *text += JsonText({{"file", name}, {"error", error}}, -1) + '\n';
    }
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
                 const std::optional<Fault>& fault, std::string* text) const {
    JsonPrinter out(has_several_ ? -1 : 2, text);
    if (has_several_) {
      out.BeginObject();
      out.PlainKey("file");
      out.String(name);
      out.PlainKey("record");
    }
    WriteObject(paths_, record, fault, &out);
    if (has_several_) out.EndObject();
    *text += '\n';
  }

  void WriteObject(const Paths& paths, const Record& record,
                   const std::optional<Fault>& fault, JsonPrinter* out) const {
    out->BeginObject();
    if (paths.empty()) {
      WriteMembers(record, json_, out);
    } else {
      WriteMembers(paths, record, json_, out);
    }
    if (fault.has_value() && !json_.is_strict) WriteMember(*fault, out);
    out->EndObject();
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
