// Makes a test of each group of cases in tests/data/wire_rules.tsv, whose head
// tells what its lines and columns mean.

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/conformance/model/checked_message.h"
#include "tests/support/bytes.h"
#include "tests/support/differences.h"

namespace vantiro {
namespace tests {
namespace {

struct Case {
  std::string type_name;
  // Bytes are in hexadecimal.
  std::string input;
  std::string verdict;
  std::string output;
};

struct CaseGroup {
  std::string suite;
  std::string name;
  // How the bytes are given, or empty.
  std::string way;
  std::vector<Case> cases;
};

// "[Suite.Name]" or "[Suite.Name] way"
CaseGroup ParseHead(const std::string& line) {
  std::istringstream stream(line.substr(1));
  CaseGroup group;
  std::getline(stream, group.suite, '.');
  std::getline(stream, group.name, ']');
  std::getline(stream >> std::ws, group.way);
  return group;
}

Case ParseCase(const std::string& line, const std::string& type_before) {
  std::istringstream stream(line);
  Case result;
  for (std::string* column :
       {&result.type_name, &result.input, &result.verdict, &result.output}) {
    EXPECT_TRUE(std::getline(stream, *column, '\t')) << line;
  }
  if (result.type_name.empty()) result.type_name = type_before;
  if (result.output == "=") result.output = result.input;
  return result;
}

std::vector<CaseGroup> ReadGroups() {
  std::vector<CaseGroup> groups;
  std::string type;
  std::istringstream lines(ReadData("wire_rules.tsv"));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      groups.push_back(ParseHead(line));
    } else {
      groups.back().cases.push_back(ParseCase(line, type));
      type = groups.back().cases.back().type_name;
    }
  }
  return groups;
}

// The inputs that give the bytes in the way that a group asks for.
std::vector<Input> InputsGiven(const std::string& way,
                               const std::string& bytes) {
  std::vector<Input> result;
  for (Input& input : InputsOf(bytes)) {
    const bool in_one_piece = input.chunk_size == 0;
    bool is_given = way.empty();
    if (way == "in one piece") is_given = in_one_piece;
    if (way == "in one chunk") {
      is_given = in_one_piece || input.chunk_size == 4096;
    }
    if (way == "byte by byte") is_given = input.chunk_size == 1;
    if (way == "with a limit") is_given = in_one_piece || input.has_limit;
    if (way == "without a limit") is_given = !in_one_piece && !input.has_limit;
    if (way.rfind("levels ", 0) == 0) {
      is_given = true;
      input.recursion_limit = std::stoi(way.substr(7));
    }
    if (is_given) result.push_back(input);
  }
  return result;
}

class GroupTest : public testing::Test {
 public:
  explicit GroupTest(CaseGroup group) : group_(std::move(group)) {}

  void TestBody() override {
    const google::protobuf::LogSilencer silence;
    EXPECT_FALSE(group_.cases.empty());
    Differences differences;
    for (const Case& wanted : group_.cases) {
      const std::vector<Input> inputs =
          InputsGiven(group_.way, FromHex(wanted.input));
      EXPECT_FALSE(inputs.empty()) << group_.way;
      differences.Check(wanted.input, [&] {
        for (const Input& input : inputs) ExpectRead(wanted, input);
      });
    }
  }

 private:
  static void ExpectRead(const Case& wanted, const Input& input) {
    SCOPED_TRACE(ToString(input));
    std::string written;
    const Verdict verdict =
        ReadByAllEntryPoints(FindType(wanted.type_name), input, &written);
    EXPECT_EQ(verdict.complete ? "reads"
              : verdict.merged ? "stops"
                               : "fails",
              wanted.verdict);
    if (wanted.output == "*") return;
    EXPECT_TRUE(AreSame(written, FromHex(wanted.output)));
  }

  const CaseGroup group_;
};

[[maybe_unused]] const bool registered = [] {
  for (const CaseGroup& group : ReadGroups()) {
    testing::RegisterTest(
        group.suite.c_str(), group.name.c_str(), nullptr, nullptr, __FILE__,
        __LINE__, [group]() -> testing::Test* { return new GroupTest(group); });
  }
  return true;
}();

}  // namespace
}  // namespace tests
}  // namespace vantiro
