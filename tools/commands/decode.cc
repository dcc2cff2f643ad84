#include <iostream>
#include <map>
#include <memory>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/csv.h"
#include "tools/formats/json.h"
#include "tools/formats/outline.h"
#include "tools/formats/text_format.h"
#include "tools/io/progress.h"
#include "tools/record/leaves.h"
#include "tools/record/path.h"
#include "tools/record/value_text.h"
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
};

// A value that --path leads to; not for messages.
std::string SelectedText(const Selected& selected) {
  const FieldDescriptor& field = *selected.value->field;
  if (selected.index.has_value()) {
    return ScalarText(field, selected.value->scalars[*selected.index]);
  }
  return ValueText(*selected.value);
}

Json SelectedJson(const Selected& selected) {
  if (selected.message != nullptr) return ToJson(*selected.message);
  if (!selected.index.has_value()) return ToJson(*selected.value);
  return ToJson(*selected.value->field,
                selected.value->scalars[*selected.index]);
}

class Decoder {
 public:
  Decoder(const Options& options, CommandIo* io)
      : options_(options), io_(*io), style_(io->style()) {}

  void Run() {
    WriteCsvHeadings();
    Progress progress(options_.files.size(), io_.quiet());
    for (size_t i = 0; i < options_.files.size(); ++i) {
      progress.Hide();
      try {
        Decode(options_.files[i]);
      } catch (const UsageError& error) {
        // The other files are still shown.
        if (!HasSeveralFiles()) throw;
        std::cout.flush();
        std::cerr << "vantiro-records: " << error.what() << '\n';
        io_.RaiseStatus(kWrongUse);
      }
      progress.Show(i + 1);
    }
  }

 private:
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
      WriteCsv(file, &record);
    } else if (options_.format == "json") {
      WriteJson(file, &record);
    } else {
      if (HasSeveralFiles()) std::cout << style_.Note("# " + file) << '\n';
      WriteReadable(&record);
    }
    io_.ReportFault(file, tree.fault);
  }

  void WriteReadable(Record* record) const {
    if (options_.paths.empty()) {
      WriteRecord(*record);
      return;
    }
    for (const std::string& path : options_.paths) {
      for (const Selected& selected :
           Select(ParsePath(*record->type, path), record)) {
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
  void WriteJson(const std::string& file, Record* record) const {
    const Json json = RecordJson(record);
    if (HasSeveralFiles()) {
      std::cout << Json{{"file", file}, {"record", json}}.dump() << '\n';
    } else {
      std::cout << json.dump(2) << '\n';
    }
  }

  Json RecordJson(Record* record) const {
    if (options_.paths.empty()) return ToJson(*record);
    Json object = Json::object();
    for (const std::string& path : options_.paths) {
      Json values = Json::array();
      for (const Selected& selected :
           Select(ParsePath(*record->type, path), record)) {
        values.push_back(SelectedJson(selected));
      }
      object[path] = values.size() == 1 ? values[0] : std::move(values);
    }
    return object;
  }

  void WriteCsvHeadings() const {
    if (options_.format != "csv") return;
    std::vector<std::string> headings = {"file"};
    headings.insert(headings.end(), options_.paths.begin(),
                    options_.paths.end());
    if (options_.paths.empty()) headings = {"file", "path", "value"};
    WriteCsvRow(headings, &std::cout);
  }

  // One row for each file if there are paths, otherwise for each value.
  void WriteCsv(const std::string& file, Record* record) const {
    if (options_.paths.empty()) {
      VisitLeaves(*record, "",
                  [&file](const std::string& path, const std::string& value) {
                    WriteCsvRow({file, path, value}, &std::cout);
                  });
      return;
    }
    std::vector<std::string> row = {file};
    for (const std::string& path : options_.paths) {
      std::string cell;
      for (const Selected& selected :
           Select(ParsePath(*record->type, path), record)) {
        if (!cell.empty()) cell += ' ';
        cell += selected.message != nullptr ? ToJson(*selected.message).dump()
                                            : SelectedText(selected);
      }
      row.push_back(cell);
    }
    WriteCsvRow(row, &std::cout);
  }

  const Options& options_;
  CommandIo& io_;
  const Style style_;
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
