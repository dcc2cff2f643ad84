#include "bench/callgrind_profile.h"

#include <stdexcept>

namespace vantiro {
namespace bench {
namespace {

// Whether the line starts with this. Gives what stands behind it.
bool Starts(const std::string& line, const std::string& prefix,
            std::string* rest) {
  if (line.compare(0, prefix.size(), prefix) != 0) return false;
  *rest = line.substr(prefix.size());
  return true;
}

}  // namespace

// The lines that matter here:
//
//   desc: Trigger: Client Request: <name>
//   summary: <instructions of all functions>
//   ob=<object file of what follows>
//   <line> <instructions>
//   calls=<count> <line>   and then a line with the cost of the callee, which
//                          is counted where the callee stands
CallgrindProfile ReadCallgrindProfile(std::istream* in) {
  CallgrindProfile profile;
  uint64_t sum = 0;
  uint64_t summary = 0;
  std::string line;
  std::string object;
  std::string rest;
  while (std::getline(*in, line)) {
    if (Starts(line, "calls=", &rest)) {
      std::getline(*in, line);
    } else if (Starts(line, "ob=", &rest)) {
      object = rest;
    } else if (Starts(line, "desc: Trigger: Client Request: ", &rest)) {
      profile.name = rest;
    } else if (Starts(line, "summary: ", &rest)) {
      summary = std::stoull(rest);
    } else if (line.find_first_of("0123456789") == 0) {
      const uint64_t instructions = std::stoull(line.substr(line.find(' ')));
      profile.instructions[object] += instructions;
      sum += instructions;
    }
  }
  if (sum != summary) throw std::runtime_error("a profile is not understood");
  return profile;
}

}  // namespace bench
}  // namespace vantiro
