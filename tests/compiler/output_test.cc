// What is written depends on the schema and on nothing else.

#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/compiler/protoc.h"
#include "tests/compiler/schemas.h"

namespace vantiro {
namespace tests {
namespace {

using Files = std::map<std::string, std::string>;

Files Compile(const std::string& folder,
              const std::vector<std::string>& files) {
  const ProtocRun run = RunProtoc({folder}, files);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.said, "");
  return run.files;
}

void ExpectSameFiles(const Files& actual, const Files& wanted) {
  EXPECT_EQ(actual.size(), wanted.size());
  for (const auto& [name, text] : wanted) {
    const auto found = actual.find(name);
    ASSERT_NE(found, actual.end()) << name << " is missing";
    EXPECT_EQ(found->second, text) << name;
  }
}

class Output : public testing::Test {
 protected:
  const std::vector<std::string> units_ = FilesIn(VANTIRO_SCHEMA, ".proto");
  const Files files_ = Compile(VANTIRO_SCHEMA, units_);
};

TEST_F(Output, IsTheSameWhereverTheSchemaLiesAndInWhateverOrderItIsGiven) {
  EXPECT_EQ(files_.size(), 2 * units_.size());
  const std::string copy = MakeScratchFolder();
  std::filesystem::copy(VANTIRO_SCHEMA, copy);
  ExpectSameFiles(Compile(copy, {units_.rbegin(), units_.rend()}), files_);
  std::filesystem::remove_all(copy);
}

TEST_F(Output, IsTheSameForAUnitOnItsOwn) {
  Files files;
  for (const std::string& unit : units_) {
    files.merge(Compile(VANTIRO_SCHEMA, {unit}));
  }
  ExpectSameFiles(files, files_);
}

TEST_F(Output, HoldsNoDateAndNothingThatTheCompilerMakesOne) {
  const std::time_t now = std::time(nullptr);
  const std::string year = std::to_string(1900 + std::gmtime(&now)->tm_year);
  for (const auto& [name, text] : files_) {
    for (const std::string& word :
         {year, std::string("__DATE__"), std::string("__TIME__"),
          std::string("__FILE__")}) {
      EXPECT_EQ(text.find(word), std::string::npos) << word << " in " << name;
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
