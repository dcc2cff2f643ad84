// Makes a test of each group of cases in the data files.

#include "tests/conformance/wire/cases.h"

#include <gtest/gtest.h>

#include "tests/conformance/wire/log.h"
#include "tests/conformance/wire/reading.h"

namespace vantiro {
namespace tests {
namespace {

class GroupTest : public testing::Test {
 public:
  explicit GroupTest(CaseGroup group) : group_(std::move(group)) {}

  void TestBody() override {
    const Log log;
    const std::vector<Given> ways = WaysFor(group_.ways);
    EXPECT_FALSE(group_.cases.empty());
    for (const Case& wanted : group_.cases) ExpectReading(wanted, ways);
  }

 private:
  const CaseGroup group_;
};

bool Register(const char* file) {
  for (const CaseGroup& group : ReadCases(file)) {
    testing::RegisterTest(
        group.suite.c_str(), group.name.c_str(), nullptr, nullptr, __FILE__,
        __LINE__, [group]() -> testing::Test* { return new GroupTest(group); });
  }
  return true;
}

[[maybe_unused]] const bool registered =
    Register("wire_rules.tsv") && Register("edge_cases.tsv");

}  // namespace
}  // namespace tests
}  // namespace vantiro
