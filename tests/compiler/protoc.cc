#include "tests/compiler/protoc.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/compiler/schemas.h"

namespace vantiro {
namespace tests {
namespace {

std::string Quote(const std::string& word) { return " '" + word + "'"; }

}  // namespace

std::string MakeScratchFolder() {
  std::string path = testing::TempDir() + "vantiro_XXXXXX";
  EXPECT_NE(mkdtemp(path.data()), nullptr) << path;
  return path;
}

CommandRun RunCommand(const std::string& command) {
  CommandRun run;
  FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
  std::array<char, 4096> block;
  for (size_t count;
       (count = fread(block.data(), 1, block.size(), pipe)) > 0;) {
    run.said.append(block.data(), count);
  }
  const int status = pclose(pipe);
  run.exit_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

ProtocRun RunProtoc(const std::vector<std::string>& folders,
                    const std::vector<std::string>& files,
                    const std::string& option) {
  const std::string output = MakeScratchFolder();
  std::string command = Quote(VANTIRO_PROTOC) +
                        Quote("--plugin=protoc-gen-vantiro=" VANTIRO_PLUGIN) +
                        Quote(option + output);
  for (const std::string& folder : folders) command += Quote("-I" + folder);
  for (const std::string& file : files) command += Quote(file);

  ProtocRun run{RunCommand(command), {}};
  for (const std::string& name : FilesIn(output, "")) {
    std::ifstream file(output + "/" + name, std::ios::binary);
    run.files[name] = {std::istreambuf_iterator<char>(file),
                       std::istreambuf_iterator<char>()};
  }
  std::filesystem::remove_all(output);
  return run;
}

}  // namespace tests
}  // namespace vantiro
