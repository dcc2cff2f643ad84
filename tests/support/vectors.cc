#include "tests/support/vectors.h"

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

Vector ParseRow(const std::vector<std::string>& columns) {
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
    for (const auto& row : ReadTable("vectors.tsv", 10)) {
      result->push_back(ParseRow(row));
    }
    return result;
  }();
  return *vectors;
}

}  // namespace tests
}  // namespace vantiro
