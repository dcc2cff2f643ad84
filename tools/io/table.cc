#include "tools/io/table.h"

#include <algorithm>
#include <sstream>

namespace vantiro {
namespace tools {

void WriteTable(const std::vector<Row>& rows, const Style& style,
                std::ostream* out) {
  std::vector<size_t> widths(rows[0].size());
  for (const Row& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], row[i].size());
    }
  }
  for (const Row& row : rows) {
    std::string line;
    for (size_t i = 0; i < row.size(); ++i) {
      line += row[i] + std::string(widths[i] - row[i].size() + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    *out << (&row == rows.data() ? style.Heading(line) : line) << '\n';
  }
}

void WriteParagraph(const std::string& text, const std::string& indent,
                    std::ostream* out) {
  constexpr size_t kWidth = 80;
  std::istringstream words(text);
  std::string line;
  for (std::string word; words >> word;) {
    if (!line.empty() &&
        indent.size() + line.size() + 1 + word.size() > kWidth) {
      *out << indent << line << '\n';
      line.clear();
    }
    line += (line.empty() ? "" : " ") + word;
  }
  if (!line.empty()) *out << indent << line << '\n';
}

}  // namespace tools
}  // namespace vantiro
