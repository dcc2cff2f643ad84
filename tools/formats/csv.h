// Rows of comma-separated values.

#ifndef VANTIRO_TOOLS_FORMATS_CSV_H_
#define VANTIRO_TOOLS_FORMATS_CSV_H_

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vantiro {
namespace tools {

// Adds a cell as RFC 4180 has it: one with a comma, a quote or a line break is
// quoted.
inline void AddCsvCell(std::string_view cell, std::string* text) {
  if (cell.find_first_of(",\"\r\n") == std::string_view::npos) {
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

// Writes a row of such cells, with a line feed at its end.
inline void WriteCsvRow(const std::vector<std::string>& cells,
                        std::ostream* out) {
  std::string row;
  for (const std::string& cell : cells) {
    if (&cell != cells.data()) row += ',';
    AddCsvCell(cell, &row);
  }
  *out << row << '\n';
}

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_CSV_H_
