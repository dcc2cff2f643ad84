// What the plug-in has no shape for is refused with its place and name. Each
// file of tests/data/refused says at its head what is to be said about it.

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "tests/compiler/protoc.h"
#include "tests/compiler/schemas.h"

namespace vantiro {
namespace tests {
namespace {

std::string Lines(const std::vector<std::string>& lines) {
  std::string result;
  for (const std::string& line : lines) result += line + "\n";
  return result;
}

std::vector<std::string> RefusalsWanted(const std::string& name) {
  const std::string head = "// Refused at ";
  std::vector<std::string> result;
  std::ifstream file(VANTIRO_REFUSED "/" + name);
  for (std::string line; std::getline(file, line);) {
    if (line.compare(0, head.size(), head) != 0) break;
    result.push_back(name + ":" + line.substr(head.size()));
  }
  EXPECT_FALSE(result.empty()) << name << " does not say what is wrong in it";
  return result;
}

class RefusedSchema : public testing::TestWithParam<std::string> {};

TEST_P(RefusedSchema, MakesProtocFailWithOneLineForEachFault) {
  const std::vector<std::string> wanted = RefusalsWanted(GetParam());
  const ProtocRun run = RunProtoc({VANTIRO_REFUSED}, {GetParam()});
  EXPECT_NE(run.exit_status, 0);
  EXPECT_EQ(run.said, "--vantiro_out: " + std::to_string(wanted.size()) +
                          " not supported:\n" + Lines(wanted));
  EXPECT_TRUE(run.files.empty()) << run.files.begin()->first << " was written";
}

std::string Stem(const testing::TestParamInfo<std::string>& info) {
  return info.param.substr(0, info.param.rfind('.'));
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedSchema,
                         testing::ValuesIn(FilesIn(VANTIRO_REFUSED, ".proto")),
                         Stem);

TEST(Refusal, OneBadFileKeepsTheGoodOnesFromBeingWritten) {
  const ProtocRun run = RunProtoc(
      {VANTIRO_SCHEMA, VANTIRO_REFUSED},
      {"zATM_debug.proto", "oneof.proto", "zaf_common.proto", "map.proto"});
  EXPECT_NE(run.exit_status, 0);
  EXPECT_EQ(run.said, "--vantiro_out: 2 not supported:\n" +
                          Lines(RefusalsWanted("oneof.proto")) +
                          Lines(RefusalsWanted("map.proto")));
  EXPECT_TRUE(run.files.empty()) << run.files.begin()->first << " was written";
}

TEST(Refusal, ParametersAreUnknown) {
  const ProtocRun run =
      RunProtoc({VANTIRO_SCHEMA}, {"zATM_debug.proto"}, "--vantiro_out=lite:");
  EXPECT_NE(run.exit_status, 0);
  EXPECT_EQ(run.said, "--vantiro_out: no parameter is known, got: lite\n");
  EXPECT_TRUE(run.files.empty()) << run.files.begin()->first << " was written";
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
