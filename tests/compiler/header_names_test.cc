// The plug-in knows the names that emitted code finds taken: those of the
// headers that it includes, as the compilers at hand see them.

#include <gnu/libc-version.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "compiler/reserved_names.h"
#include "tests/compiler/protoc.h"

namespace vantiro {
namespace tests {
namespace {

using compiler::IsFunctionLikeMacro;
using compiler::IsGlobalName;
using compiler::IsKeyword;
using compiler::IsLaterKeyword;
using compiler::IsMacro;
using compiler::IsOfTheCompiler;
using Names = std::set<std::string>;

bool IsTaken(const std::string& name) {
  return IsKeyword(name) || IsLaterKeyword(name) || IsMacro(name) ||
         IsGlobalName(name) || IsOfTheCompiler(name) || name == "std" ||
         name == "google" || name == "vantiro";
}

// A folder with the code of a unit that declares nothing.
class HeaderNames : public testing::Test {
 protected:
  void SetUp() override {
    if (std::string(gnu_get_libc_version()) > "2.36") {
      GTEST_SKIP() << "The tables are of an earlier C library.";
    }
    Write("empty.proto",
          "syntax = \"proto3\"; package empty; option optimize_for = "
          "LITE_RUNTIME;");
    const ProtocRun run = RunProtoc({folder_}, {"empty.proto"});
    for (const auto& [name, text] : run.files) Write(name, text);
    std::istringstream lines(VANTIRO_COMPILE_SOURCES
                             "\n" VANTIRO_COMPILE_HEADERS);
    for (std::string line; std::getline(lines, line);) {
      commands_.push_back("cd '" + folder_ + "' && " + line);
    }
  }

  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ + "/" + name) << text;
  }

  // Has the code compiled with `text` behind it.
  std::string Output(const std::string& command,
                     const std::string& text) const {
    Write("headers.cc", "#include \"empty.pb.h\"\n" + text);
    Write("sources.cc", "#include \"empty.pb.cc\"\n" + text);
    return RunCommand(command).said;
  }

  const std::string folder_ = MakeScratchFolder();
  std::vector<std::string> commands_;
};

// The command with other options in place of that to compile.
std::string Preprocess(std::string command, const std::string& options) {
  const std::string compile = "-fsyntax-only";
  return command.replace(command.find(compile), compile.size(), options);
}

TEST_F(HeaderNames, OfMacrosAreKnown) {
  for (const std::string& command : commands_) {
    std::istringstream lines(Output(Preprocess(command, "-E -dM"), ""));
    const std::regex macro(R"(#define (\w+)(\(?)\S* ?(.*))");
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
      ASSERT_TRUE(std::regex_match(line, match, macro)) << line;
      const std::string name = match[1];
      if (match[3] == name) continue;
      const bool is_known =
          match[2].length() == 0 ? IsMacro(name) : IsFunctionLikeMacro(name);
      EXPECT_TRUE(is_known || IsOfTheCompiler(name)) << line;
    }
  }
}

TEST_F(HeaderNames, InTheGlobalNamespaceAreKnown) {
  for (const std::string& command : commands_) {
    const std::string code = Output(Preprocess(command, "-E -P"), "");
    Names names;
    const std::regex word(R"([A-Za-z_]\w*)");
    for (std::sregex_iterator it(code.begin(), code.end(), word), end;
         it != end; ++it) {
      names.insert(it->str());
    }
    std::string namespaces;
    for (const std::string& name : names) {
      if (!IsTaken(name)) namespaces += "namespace " + name + " {}\n";
    }
    EXPECT_GT(namespaces.size(), 1000U);
    EXPECT_EQ(Output(command, namespaces), "");
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
