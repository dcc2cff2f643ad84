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
    cell += selected.message != nullptr ? RecordJson(*selected.message, options)
                                        : SelectedText(selected);
  }
  return cell;
}

}  // namespace

void RecordCsv::AddHeadings() {
  std::vector<std::string> row = {"file"};
  row.insert(row.end(), paths_.texts().begin(), paths_.texts().end());
  if (has_elements_) row.insert(row.begin() + 1, "element");
  if (paths_.empty()) row = {"file", "path", "value"};
  row.emplace_back("error");
  AddCsvRow(row, &text_);
}

void RecordCsv::AddRecord(const std::string& file, const Record& record,
                          const std::string& error) {
  if (!paths_.empty()) {
    std::vector<std::string> row = {FileCell(file)};
    for (const std::optional<Path>& path : paths_.For(*record.type)) {
      row.push_back(Cell(path, record, options_));
    }
    row.push_back(error);
    AddCsvRow(row, &text_);
    return;
  }
  std::string first_cells;
  AddCsvCell(FileCell(file), &first_cells);
  first_cells += ',';
  std::string last_cells = ",";
  AddCsvCell(error, &last_cells);
  last_cells += '\n';
  const size_t size = text_.size();
  VisitLeaves(record, "",
              [&](const std::string& path, const std::string& value) {
                text_ += first_cells;
                text_ += path;
                text_ += ',';
                AddCsvCell(value, &text_);
                text_ += last_cells;
              });
  if (text_.size() == size && !error.empty()) AddError(file, error);
}

void RecordCsv::AddElement(const std::string& file, const std::string& element,
                           const Record& record, const std::string& error) {
  std::vector<std::string> row = {FileCell(file), element};
  for (const std::optional<Path>& path : paths_.For(*record.type)) {
    row.push_back(Cell(path, record, options_));
  }
  row.push_back(error);
  AddCsvRow(row, &text_);
}

void RecordCsv::AddError(const std::string& file, const std::string& error) {
  std::vector<std::string> row(
      paths_.empty() ? 4 : paths_.texts().size() + (has_elements_ ? 3 : 2));
  row.front() = FileCell(file);
  row.back() = error;
  AddCsvRow(row, &text_);
}

}  // namespace tools
}  // namespace vantiro
