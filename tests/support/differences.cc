#include "tests/support/differences.h"

#include <google/protobuf/stubs/common.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

constexpr bool kIsVersion39 = GOOGLE_PROTOBUF_VERSION / 1000 == 3009;

// As in the list: "[Suite.Name]"
std::string HeadOfRunningTest() {
  const testing::TestInfo& test =
      *testing::UnitTest::GetInstance()->current_test_info();
  return std::string("[") + test.test_suite_name() + '.' + test.name() + ']';
}

std::set<std::string> ReadCases(const std::string& wanted_head) {
  std::set<std::string> cases;
  bool is_wanted = false;
  std::istringstream lines(ReadData("differences_3_9.txt"));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      is_wanted = line == wanted_head;
    } else if (is_wanted) {
      EXPECT_TRUE(cases.insert(line).second) << line << " is listed twice";
    }
  }
  return cases;
}

}  // namespace

Differences::Differences() {
  if (kIsVersion39) listed_ = ReadCases(HeadOfRunningTest());
}

Differences::~Differences() {
  for (const std::string& listed : listed_) {
    EXPECT_EQ(checked_.count(listed), 1u) << listed << " is no case";
  }
}

void Differences::Check(const std::string& case_name,
                        const std::function<void()>& check) {
  if (listed_.count(case_name) == 0) {
    check();
    return;
  }
  checked_.insert(case_name);
  testing::TestPartResultArray results;
  {
    const testing::ScopedFakeTestPartResultReporter reporter(
        testing::ScopedFakeTestPartResultReporter::
            INTERCEPT_ONLY_CURRENT_THREAD,
        &results);
    check();
  }
  int failure_count = 0;
  for (int i = 0; i < results.size(); ++i) {
    if (results.GetTestPartResult(i).failed()) ++failure_count;
  }
  EXPECT_GT(failure_count, 0) << case_name << " is listed, but no difference";
}

}  // namespace tests
}  // namespace vantiro
