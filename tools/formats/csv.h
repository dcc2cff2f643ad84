// Rows of comma-separated values.

#ifndef VANTIRO_TOOLS_FORMATS_CSV_H_
#define VANTIRO_TOOLS_FORMATS_CSV_H_

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vantiro {
namespace tools {

// Adds a cell as RFC 4180 has it: one with a comma, a quote or a line break is
// quoted.
inline void AddCsvCell(std::string_view cell, std::string* text) {
  const bool is_plain = std::none_of(cell.begin(), cell.end(), [](char c) {
    return c == ',' || c == '"' || c == '\r' || c == '\n';
  });
  if (is_plain) {
    *text += cell;
    return;
  }
  *text += '"';
  for (const char c : cell) {
    if (c == '"') *text += '"';
    *text += c;
  }
  *text += '"';
}

// Adds a row of such cells, with a line feed at its end.
inline void AddCsvRow(const std::vector<std::string>& cells,
                      std::string* text) {
  for (const std::string& cell : cells) {
    if (&cell != cells.data()) *text += ',';
    AddCsvCell(cell, text);
  }
  *text += '\n';
}

// The same, to a stream.
inline void WriteCsvRow(const std::vector<std::string>& cells,
                        std::ostream* out) {
  std::string row;
  AddCsvRow(cells, &row);
  *out << row;
}

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_CSV_H_
