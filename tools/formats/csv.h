// Rows of comma-separated values.

#ifndef VANTIRO_TOOLS_FORMATS_CSV_H_
#define VANTIRO_TOOLS_FORMATS_CSV_H_

#include <ostream>
#include <string>
#include <vector>

namespace vantiro {
namespace tools {

// Writes a row as RFC 4180 has it, but with a line feed at its end: cells with
// a comma, a quote or a line break are quoted.
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

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_CSV_H_
