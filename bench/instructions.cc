#include "bench/instructions.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bench/callgrind_profile.h"
#include "bench/counted_run.h"

namespace vantiro {
namespace bench {
namespace {

namespace fs = std::filesystem;

void Execute(std::vector<std::string> command) {
  std::vector<char*> arguments;
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  pid_t child;
  int status;
  if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(),
                   environ) != 0 ||
      waitpid(child, &status, 0) != child || status != 0) {
    throw std::runtime_error(command[0] + " failed");
  }
}

bool IsRuntime(const std::string& object) {
  return object.find("/libprotobuf-lite.so") != std::string::npos;
}

uint64_t CountedInstructions(const CallgrindProfile& profile) {
  const BuiltVariant& variant =
      FindVariant(profile.name.substr(0, profile.name.find('/')));
  uint64_t sum = 0;
  for (const auto& [object, instructions] : profile.instructions) {
    if (object == variant.library || object == variant.plugin ||
        IsRuntime(object)) {
      sum += instructions;
    }
  }
  return sum;
}

// Names each profile after what it counts, for people who look into it.
std::map<std::string, uint64_t> ReadCounts(const fs::path& folder) {
  const std::vector<fs::path> files(fs::directory_iterator(folder), {});
  std::map<std::string, uint64_t> counts;
  for (const fs::path& file : files) {
    std::ifstream in(file);
    const CallgrindProfile profile = ReadCallgrindProfile(&in);
    if (profile.name.empty()) continue;
    counts[profile.name] = CountedInstructions(profile) / kCountedRuns;
    std::string name = profile.name;
    std::replace(name.begin(), name.end(), '/', '.');
    fs::rename(file, folder / name);
  }
  return counts;
}

}  // namespace

std::map<std::string, uint64_t> CountInstructions(
    const std::string& operation, const std::string& workload,
    const std::vector<BuiltVariant>& variants) {
  const fs::path folder = VANTIRO_BENCH_PROFILES;
  fs::remove_all(folder);
  fs::create_directories(folder);
  std::vector<std::string> command = {
      "valgrind",
      "--quiet",
      "--tool=callgrind",
      "--collect-atstart=no",
      "--compress-strings=no",
      "--compress-pos=no",
      "--callgrind-out-file=" + (folder / "profile").string(),
      VANTIRO_BENCH_COUNTED_RUN,
      operation,
      workload};
  for (const BuiltVariant& variant : variants) command.push_back(variant.name);
  Execute(command);

  return ReadCounts(folder);
}

}  // namespace bench
}  // namespace vantiro
