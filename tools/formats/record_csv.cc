#include "tools/formats/record_csv.h"

#include <string_view>
#include <vector>

#include "tools/formats/csv.h"
#include "tools/record/leaves.h"
#include "tools/record/value_text.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

// A cell that begins so can be a formula to the program that opens the file.
std::string FileCell(const std::string& file) {
  const bool is_formula = file != "-" && std::string_view("=+-@").find(
                                             file[0]) != std::string::npos;
  return (is_formula ? "'" : "") + EscapeControls(file);
}

std::string Cell(const std::optional<Path>& path, const Record& record,
                 const JsonOptions& options) {
  std::string cell;
  if (!path.has_value()) return cell;
  for (const Selected& selected : Select(*path, record)) {
    if (!cell.empty()) cell += ' ';
    cell += selected.message != nullptr
                ? JsonText(ToJson(*selected.message, options), -1)
                : SelectedText(selected);
  }
  return cell;
}

}  // namespace

void RecordCsv::WriteHeadings() {
  std::vector<std::string> row = {"file"};
  row.insert(row.end(), paths_.texts().begin(), paths_.texts().end());
  if (has_elements_) row.insert(row.begin() + 1, "element");
  if (paths_.empty()) row = {"file", "path", "value"};
  row.emplace_back("error");
  WriteCsvRow(row, &out_);
}

void RecordCsv::WriteRecord(const std::string& file, const Record& record,
                            const std::string& error) {
  if (!paths_.empty()) {
    std::vector<std::string> row = {FileCell(file)};
    for (const std::optional<Path>& path : paths_.For(*record.type)) {
      row.push_back(Cell(path, record, options_));
    }
    row.push_back(error);
    WriteCsvRow(row, &out_);
    return;
  }
  std::string first_cell;
  AddCsvCell(FileCell(file), &first_cell);
  std::string last_cell;
  AddCsvCell(error, &last_cell);
  std::string rows;
  VisitLeaves(record, "",
              [&](const std::string& path, const std::string& value) {
                rows += first_cell;
                rows += ',';
                AddCsvCell(path, &rows);
                rows += ',';
                AddCsvCell(value, &rows);
                rows += ',';
                rows += last_cell;
                rows += '\n';
              });
  out_ << rows;
  if (rows.empty() && !error.empty()) WriteError(file, error);
}

void RecordCsv::WriteElement(const std::string& file,
                             const std::string& element, const Record& record,
                             const std::string& error) {
  std::vector<std::string> row = {FileCell(file), element};
  for (const std::optional<Path>& path : paths_.For(*record.type)) {
    row.push_back(Cell(path, record, options_));
  }
  row.push_back(error);
  WriteCsvRow(row, &out_);
}

void RecordCsv::WriteError(const std::string& file, const std::string& error) {
  std::vector<std::string> row(
      paths_.empty() ? 4 : paths_.texts().size() + (has_elements_ ? 3 : 2));
  row.front() = FileCell(file);
  row.back() = error;
  WriteCsvRow(row, &out_);
}

}  // namespace tools
}  // namespace vantiro
