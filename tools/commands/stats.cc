#include <map>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/csv.h"
#include "tools/formats/json.h"
#include "tools/io/batch.h"
#include "tools/io/table.h"
#include "tools/record/value_text.h"
#include "tools/statistics/field_statistics.h"
#include "tools/wire/record_tree.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string type;
  std::string format = "table";
  bool json = false;
  bool defaults = false;
};

using StatisticsByType = std::map<std::string, RecordStatistics>;

// "repeated float", "FocusScanState".
std::string TypeText(const FieldDescriptor* field) {
  if (field == nullptr) return "";
  std::string type = field->type_name();
  if (field->message_type() != nullptr) type = field->message_type()->name();
  if (field->enum_type() != nullptr) type = field->enum_type()->name();
  return field->is_repeated() ? "repeated " + type : type;
}

const char* MedianKind(const Distribution& distribution) {
  return distribution.IsExact() ? "exact" : "estimate";
}

// Minimum, median and maximum; empty without numbers.
std::vector<std::string> Texts(const Distribution& distribution,
                               const char* estimate_mark) {
  if (distribution.count() == 0) return {"", "", ""};
  return {distribution.Minimum().Text(),
          (distribution.IsExact() ? "" : estimate_mark) +
              distribution.Median().Text(),
          distribution.Maximum().Text()};
}

// How often each value occurs.
std::vector<std::pair<std::string, size_t>> Counts(
    const FieldStatistics& statistics) {
  std::vector<std::pair<std::string, size_t>> counts;
  for (const auto& [number, count] : statistics.counts) {
    const auto bits = static_cast<uint64_t>(static_cast<uint32_t>(number));
    counts.emplace_back(ScalarText(*statistics.field, bits), count);
  }
  if (statistics.undeclared_count > 0) {
    counts.emplace_back("undeclared", statistics.undeclared_count);
  }
  return counts;
}

class TableWriter {
 public:
  TableWriter(const Style& style, std::ostream* out)
      : style_(style), out_(*out) {}

  void Write(const StatisticsByType& types) {
    for (const auto& [type, statistics] : types) {
      if (&type != &types.begin()->first) out_ << '\n';
      out_ << style_.Heading(type) << ": " << statistics.record_count()
           << (statistics.record_count() == 1 ? " record, " : " records, ");
      if (statistics.damaged_count() > 0) {
        out_ << statistics.damaged_count() << " of them damaged, ";
      }
      out_ << statistics.total_size() << " bytes\n\n";
      WriteFields(statistics);
    }
  }

  bool has_estimates() const { return has_estimates_; }

 private:
  void WriteFields(const RecordStatistics& statistics) {
    std::vector<Row> rows = {{"records", "values", "minimum", "median",
                              "maximum", "bytes", "field", "type"}};
    statistics.Visit(
        [&](const std::string& path, const FieldStatistics& field) {
          Row row = {std::to_string(field.record_count),
                     std::to_string(field.value_count)};
          for (const std::string& text : Texts(field.numbers, "~")) {
            row.push_back(text);
          }
          row.insert(row.end(), {std::to_string(field.total_size), path,
                                 TypeText(field.field)});
          rows.push_back(row);
          has_estimates_ |= !field.numbers.IsExact();
          const auto add_count = [&](const std::string& value, size_t count) {
            rows.push_back(
                {"", std::to_string(count), "", "", "", "", "  " + value, ""});
          };
          for (const auto& [value, count] : Counts(field)) {
            add_count(value, count);
          }
          if (field.nan_count > 0) add_count("nan", field.nan_count);
        });
    WriteTable(rows, style_, &out_);
  }

  const Style& style_;
  std::ostream& out_;
  bool has_estimates_ = false;
};

void WriteCsv(const StatisticsByType& types, std::ostream* out) {
  WriteCsvRow({"type", "field", "field_type", "records", "values", "minimum",
               "median", "maximum", "median_is", "nan", "size", "size_minimum",
               "size_median", "size_maximum", "size_median_is", "counts"},
              out);
  for (const auto& entry : types) {
    entry.second.Visit([&](const std::string& path,
                           const FieldStatistics& field) {
      std::vector<std::string> row = {entry.first, path, TypeText(field.field),
                                      std::to_string(field.record_count),
                                      std::to_string(field.value_count)};
      const auto add = [&row](const Distribution& distribution) {
        for (const std::string& text : Texts(distribution, "")) {
          row.push_back(text);
        }
        row.emplace_back(distribution.count() == 0 ? ""
                                                   : MedianKind(distribution));
      };
      add(field.numbers);
      row.push_back(field.nan_count == 0 ? ""
                                         : std::to_string(field.nan_count));
      row.push_back(std::to_string(field.total_size));
      add(field.sizes);
      std::string counts;
      for (const auto& [value, count] : Counts(field)) {
        counts +=
            (counts.empty() ? "" : " ") + value + "=" + std::to_string(count);
      }
      row.push_back(counts);
      WriteCsvRow(row, out);
    });
  }
}

// A number; infinity as the JSON of Protocol Buffers has it.
Json ToJson(Number number) {
  const std::string text = number.Text();
  if (text == "inf") return "Infinity";
  if (text == "-inf") return "-Infinity";
  return Json::parse(text);
}

// Adds the members minimum, median, maximum and median_is.
void AddTo(Json* json, const Distribution& distribution) {
  if (distribution.count() == 0) return;
  (*json)["minimum"] = ToJson(distribution.Minimum());
  (*json)["median"] = ToJson(distribution.Median());
  (*json)["maximum"] = ToJson(distribution.Maximum());
  (*json)["median_is"] = MedianKind(distribution);
}

Json ToJson(const std::string& path, const FieldStatistics& field) {
  Json json = {{"field", path},
               {"type", TypeText(field.field)},
               {"records", field.record_count},
               {"values", field.value_count}};
  if (field.field == nullptr) json.erase("type");
  AddTo(&json, field.numbers);
  if (field.nan_count > 0) json["nan"] = field.nan_count;
  Json counts = Json::array();
  for (const auto& [value, count] : Counts(field)) {
    counts.push_back({{"value", value}, {"count", count}});
  }
  if (!counts.empty()) json["counts"] = std::move(counts);
  Json size = {{"total", field.total_size}};
  AddTo(&size, field.sizes);
  json["size"] = std::move(size);
  return json;
}

Json ToJson(const StatisticsByType& types) {
  Json array = Json::array();
  for (const auto& [type, statistics] : types) {
    Json fields = Json::array();
    statistics.Visit(
        [&](const std::string& path, const FieldStatistics& field) {
          fields.push_back(ToJson(path, field));
        });
    array.push_back({{"type", type},
                     {"records", statistics.record_count()},
                     {"damaged", statistics.damaged_count()},
                     {"size", statistics.total_size()},
                     {"fields", std::move(fields)}});
  }
  return array;
}

class Counter : public RecordHandler {
 public:
  Counter(const Options& options, const CommandIo& io)
      : options_(options), io_(io), style_(io.style()) {}

  void Handle(const std::string& name, const std::string& bytes,
              Report* report) const override {
    const Descriptor& type = io_.TypeOf(options_.type, bytes);
    const RecordTree tree = ReadRecord(type, bytes);
    Record record = DecodeRecord(*tree.type, tree.bytes).record;
    RemoveDefaults(&record);
    if (options_.defaults) AddDefaults(&record);
    CommandIo::ReportFault(name, tree.fault, report);
    const std::lock_guard<std::mutex> lock(mutex_);
    types_[type.full_name()].Add(tree, record);
  }

  bool HandleError(const std::string& /*name*/, const std::string& /*error*/,
                   Report* /*report*/) const override {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++unread_count_;
    return false;
  }

  std::string Footer() const override {
    std::ostringstream out;
    if (options_.format == "json") {
      out << JsonText({{"not_read", unread_count_}, {"types", ToJson(types_)}},
                      2)
          << '\n';
    } else if (options_.format == "csv") {
      WriteCsv(types_, &out);
    } else {
      TableWriter writer(style_, &out);
      writer.Write(types_);
      if (writer.has_estimates() && !io_.quiet()) {
        out << "\n~ is an estimate, made of numbers within 0.4% of those in "
               "the "
               "records\n";
      }
    }
    return out.str();
  }

 private:
  const Options& options_;
  const CommandIo& io_;
  const Style style_;
  mutable std::mutex mutex_;
  mutable StatisticsByType types_;
  mutable size_t unread_count_ = 0;
};

void Count(Options* options, Batch* batch, const CommandIo& io) {
  batch->FindInputs();
  if (batch->WritesFolder()) {
    throw UsageError("--output is a file: the statistics are of all inputs");
  }
  if (options->json) options->format = "json";
  // A wrong name is one error, not one for each file.
  if (!options->type.empty()) Schema::BuiltIn().FindMessage(options->type);
  batch->Run(Counter(*options, io));
}

}  // namespace

void AddStats(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "stats", "Show how often each field is in records, and its values");
  const auto options = std::make_shared<Options>();
  const auto batch = std::make_shared<Batch>(io);
  batch->AddInputs(command);
  CommandIo::AddType(command,
                     "The records' type; by default the most likely root for "
                     "each, with statistics for each type",
                     &options->type);
  CLI::Option* const format =
      command
          ->add_option("-f,--format", options->format,
                       "table; json; csv, a row for each field")
          ->check(CLI::IsMember({"table", "json", "csv"}))
          ->type_name("FORMAT");
  command->add_flag("--json", options->json, "The same as --format json")
      ->excludes(format);
  command->add_flag("--defaults", options->defaults,
                    "Count a field that a message does not have as one with "
                    "its default value");
  batch->AddStreamOptions(command);
  io->AddInputOptions(command);
  command->footer(
      "A field with its default value is not in the bytes, and is not counted\n"
      "without --defaults. All elements of a repeated field are values of it.\n"
      "The bytes of a field are those of its tags, lengths and values. Of a\n"
      "damaged record the part before the fault counts.\n\n"
      "Memory does not grow with the number of records: of a field with more\n"
      "than 4096 different values the median is an estimate, marked with ~,\n"
      "and of an enum with more than 256 different undeclared numbers these\n"
      "are counted together.\n\n"
      "Example:\n"
      "  printf '08 05 10 07' >a.hex; printf '08 06 18 01' >b.hex\n"
      "  vantiro-records stats --hex --type ZAfRoiDimLite a.hex b.hex");
  command->callback([=] { Count(options.get(), batch.get(), *io); });
}

}  // namespace tools
}  // namespace vantiro
