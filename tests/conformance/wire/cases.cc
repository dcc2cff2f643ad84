#include "tests/conformance/wire/cases.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

// "[Suite.Name] ways"
CaseGroup ParseHead(const std::string& line) {
  std::istringstream stream(line.substr(1));
  CaseGroup group;
  std::getline(stream, group.suite, '.');
  std::getline(stream, group.name, ']');
  std::getline(stream >> std::ws, group.ways);
  return group;
}

Case ParseCase(const std::string& line) {
  std::istringstream stream(line);
  Case result;
  for (std::string* column : {&result.type_name, &result.input, &result.verdict,
                              &result.output, &result.holds}) {
    std::getline(stream, *column, '\t');
  }
  EXPECT_TRUE(result.verdict == "reads" || result.verdict == "fails" ||
              result.verdict == "stops")
      << line;
  EXPECT_NE(result.output, "") << line;
  if (result.output == "=") result.output = result.input;
  return result;
}

}  // namespace

std::vector<CaseGroup> ReadCases(const std::string& file) {
  std::vector<CaseGroup> groups;
  std::string type;
  std::istringstream lines(ReadData(file));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      groups.push_back(ParseHead(line));
      continue;
    }
    Case parsed = ParseCase(line);
    if (parsed.type_name.empty()) parsed.type_name = type;
    type = parsed.type_name;
    groups.back().cases.push_back(parsed);
  }
  return groups;
}

}  // namespace tests
}  // namespace vantiro
