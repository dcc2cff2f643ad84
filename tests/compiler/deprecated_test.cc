// The compilers warn of what is deprecated, and of nothing in emitted code.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/compiler/protoc.h"

namespace vantiro {
namespace tests {
namespace {

class Deprecated : public testing::Test {
 protected:
  void SetUp() override {
    const ProtocRun run = RunProtoc(
        {VANTIRO_TEST_SCHEMA}, {"deprecated.proto", "deprecated_values.proto"});
    ASSERT_EQ(run.said, "");
    for (const auto& [name, text] : run.files) Write(name, text);
    Write("sources.cc",
          "#include \"deprecated.pb.cc\"\n"
          "#include \"deprecated_values.pb.cc\"\n");
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ + "/" + name) << text;
  }
  std::string Compile(const std::string& command) {
    return RunCommand("cd '" + folder_ + "' && " + command).said;
  }
  const std::string folder_ = MakeScratchFolder();
};

TEST_F(Deprecated, IsNotUsedByEmittedCode) {
  EXPECT_EQ(Compile(VANTIRO_COMPILE_SOURCES), "");
  Write("headers.cc",
        "#include \"deprecated.pb.h\"\n"
        "#include \"deprecated_values.pb.h\"\n");
  std::istringstream commands(VANTIRO_COMPILE_HEADERS);
  for (std::string command; std::getline(commands, command);) {
    EXPECT_EQ(Compile(command), "") << command;
  }
}

TEST_F(Deprecated, AreAllAccessorsOfTheFieldAndTheValue) {
  // Each on a line of its own.
  const std::vector<std::string> uses = {"m->set_number(1);",
                                         "m->clear_text();",
                                         "m->mutable_text();",
                                         "m->pace();",
                                         "m->has_child();",
                                         "m->release_child();",
                                         "m->numbers_size();",
                                         "m->add_texts(\"\");",
                                         "m->sides(0);",
                                         "m->mutable_children();",
                                         "(void)GEAR_HIGH;",
                                         "(void)Drive::WHEEL_LEFT;",
                                         "(void)Drive_Wheel_WHEEL_LEFT;"};
  std::string code =
      "#include \"deprecated.pb.h\"\n"
      "#include \"deprecated_values.pb.h\"\n"
      "using namespace vantiro::tests;\n"
      "void Use(vantiro::tests::Deprecated* m) {\n";
  for (const std::string& use : uses) code += use + "\n";
  Write("sources.cc", code +
                          "m->set_in_use(PACE_SLOW);\n"
                          "(void)Gear_MAX;\n"
                          "(void)Drive::Wheel_MIN;\n"
                          "(void)Drive::WHEEL_NONE;\n}\n");
  const std::string said = Compile(VANTIRO_COMPILE_SOURCES);
  for (size_t i = 0; i < uses.size() + 5; ++i) {
    const std::string place = "sources.cc:" + std::to_string(i + 5) + ":";
    EXPECT_EQ(said.find(place) != std::string::npos, i < uses.size())
        << (i < uses.size() ? uses[i] : place) << "\n"
        << said;
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
