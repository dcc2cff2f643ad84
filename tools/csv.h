// Rows of comma-separated values.

#ifndef VANTIRO_TOOLS_CSV_H_
#define VANTIRO_TOOLS_CSV_H_

#include <ostream>
#include <string>
#include <vector>

namespace vantiro {
namespace inspection {

// Writes a row by RFC 4180, but with a plain line end: cells with a comma, a
// quote or a line end stand in quotes.
inline void WriteCsvRow(const std::vector<std::string>& cells,
                        std::ostream* out) {
  for (size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) *out << ',';
    if (cells[i].find_first_of(",\"\r\n") == std::string::npos) {
      *out << cells[i];
      continue;
    }
    *out << '"';
    for (const char c : cells[i]) {
      if (c == '"') *out << '"';
      *out << c;
    }
    *out << '"';
  }
  *out << '\n';
}

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_CSV_H_
