#include "bench/table.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace vantiro {
namespace bench {

void PrintTable(const std::vector<Row>& rows) {
  std::vector<size_t> widths;
  for (const Row& row : rows) {
    if (row.size() == 1) continue;
    widths.resize(std::max(widths.size(), row.size()));
    for (size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], row[i].size());
    }
  }
  for (const Row& row : rows) {
    std::string line = row[0];
    for (size_t i = 1; i < row.size(); ++i) {
      if (i == 1) line.resize(widths[0], ' ');
      line += std::string(widths[i] - row[i].size() + 2, ' ') + row[i];
    }
    std::printf("%s\n", line.c_str());
  }
}

std::string Fixed(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

}  // namespace bench
}  // namespace vantiro
