#include <iostream>
#include <map>
#include <memory>
#include <vector>

#include "tools/commands/session.h"
#include "tools/csv.h"
#include "tools/formats.h"
#include "tools/leaves.h"
#include "tools/path.h"
#include "tools/progress.h"
#include "tools/scalar.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::vector<std::string> files;
  std::string type;
  std::string format = "text";
  std::vector<std::string> paths;
  bool defaults = false;
};

// One value as --path shows it; a message has lines of its own.
std::string PlainText(const Picked& picked) {
  const FieldDescriptor& field = *picked.value->field;
  if (picked.index.has_value()) {
    return ScalarText(field, picked.value->scalars[*picked.index]);
  }
  return ValueText(*picked.value);
}

Json PickedJson(const Picked& picked) {
  if (picked.message != nullptr) return ToJson(*picked.message);
  if (!picked.index.has_value()) return ToJson(*picked.value);
  return ToJson(*picked.value->field, picked.value->scalars[*picked.index]);
}

class Decoder {
 public:
  Decoder(const Options& options, Session* session)
      : options_(options), session_(*session), style_(session->style()) {}

  void Run() {
    WriteCsvHead();
    Progress progress(options_.files.size(), session_.quiet());
    for (size_t i = 0; i < options_.files.size(); ++i) {
      progress.Hide();
      try {
        Decode(options_.files[i]);
      } catch (const UsageError& error) {
        // One file of many that cannot be read does not hide the others.
        if (!HasSeveralFiles()) throw;
        std::cout.flush();
        std::cerr << "vantiro-records: " << error.what() << '\n';
        session_.Raise(kWrongUse);
      }
      progress.Show(i + 1);
    }
  }

 private:
  bool HasSeveralFiles() const { return options_.files.size() > 1; }

  void Decode(const std::string& file) {
    const std::string bytes = session_.ReadBytes(file);
    const Descriptor& type = session_.TypeOf(options_.type, bytes);
    session_.NoteType(file, options_.type, type);
    const RecordTree tree = ReadRecord(type, bytes);
    Record record = MakeRecord(tree);
    DropZeros(&record);
    if (options_.defaults) AddZeros(&record);
    if (options_.format == "csv") {
      WriteCsv(file, &record);
    } else if (options_.format == "json") {
      WriteJson(file, &record);
    } else {
      if (HasSeveralFiles()) std::cout << style_.Note("# " + file) << '\n';
      WriteReadable(&record);
    }
    session_.ReportFault(file, tree.fault);
  }

  void WriteReadable(Record* record) const {
    if (options_.paths.empty()) {
      WriteRecord(*record);
      return;
    }
    for (const std::string& path : options_.paths) {
      for (const Picked& picked :
           Pick(ParsePath(*record->type, path), record)) {
        if (picked.message != nullptr) {
          WriteRecord(*picked.message);
        } else {
          std::cout << PlainText(picked) << '\n';
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

  // One document, or a line for each of several files.
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
      for (const Picked& picked :
           Pick(ParsePath(*record->type, path), record)) {
        values.push_back(PickedJson(picked));
      }
      object[path] = values.size() == 1 ? values[0] : std::move(values);
    }
    return object;
  }

  void WriteCsvHead() const {
    if (options_.format != "csv") return;
    std::vector<std::string> head = {"file"};
    head.insert(head.end(), options_.paths.begin(), options_.paths.end());
    if (options_.paths.empty()) head = {"file", "path", "value"};
    WriteCsvRow(head, &std::cout);
  }

  // With paths a row for each file, otherwise one for each value.
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
      for (const Picked& picked :
           Pick(ParsePath(*record->type, path), record)) {
        if (!cell.empty()) cell += ' ';
        cell += picked.message != nullptr ? ToJson(*picked.message).dump()
                                          : PlainText(picked);
      }
      row.push_back(cell);
    }
    WriteCsvRow(row, &std::cout);
  }

  const Options& options_;
  Session& session_;
  const Style style_;
};

}  // namespace

void AddDecode(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "decode", "Show what records hold, also damaged ones as far as they go");
  const auto options = std::make_shared<Options>();
  Session::AddFiles(command, &options->files);
  Session::AddType(command, "The records' type", &options->type);
  command
      ->add_option("-f,--format", options->format,
                   "text (encode reads it), json (encode reads it), tree (an "
                   "outline), csv (a row for each value; with --path for each "
                   "file)")
      ->check(CLI::IsMember({"text", "json", "tree", "csv"}))
      ->type_name("FORMAT");
  command
      ->add_option("-p,--path", options->paths,
                   "Show only this, as in a.b[2].c; may be given again")
      ->type_name("PATH")
      ->allow_extra_args(false);
  command->add_flag("--defaults", options->defaults,
                    "Show fields that are zero or empty too");
  session->AddInputOptions(command);
  command->footer(
      "Example:\n"
      "  echo '08 05 10 07' |\n"
      "    vantiro-records decode --hex --type ZAfRoiDimLite -\n\n"
      "Of a damaged record, what could be read is shown; standard error then\n"
      "tells where and why it ends, and the exit status is 1.");
  command->callback([=] { Decoder(*options, session).Run(); });
}

}  // namespace inspection
}  // namespace vantiro
