#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

Vector ParseLine(const std::string& line) {
  std::vector<std::string> columns;
  std::istringstream stream(line);
  for (std::string column; std::getline(stream, column, '\t');) {
    columns.push_back(column);
  }
  EXPECT_EQ(columns.size(), 10u) << line;
  columns.resize(10);
  return {columns[0],
          columns[1],
          columns[2],
          columns[3],
          std::stoi(columns[4]),
          columns[5] == "1",
          FromHex(columns[6]),
          columns[7] != "-",
          FromHex(columns[7]),
          columns[8] != "-",
          FromHex(columns[8]),
          columns[9] != "-",
          FromHex(columns[9])};
}

}  // namespace

const std::vector<Vector>& AllVectors() {
  static const auto* const vectors = [] {
    auto* const result = new std::vector<Vector>;
    std::istringstream file(ReadData("vectors.tsv"));
    for (std::string line; std::getline(file, line);) {
      if (!line.empty() && line[0] != '#') result->push_back(ParseLine(line));
    }
    return result;
  }();
  return *vectors;
}

}  // namespace tests
}  // namespace vantiro
