// Reads a profile that callgrind wrote without compressing names.

#ifndef VANTIRO_BENCH_CALLGRIND_PROFILE_H_
#define VANTIRO_BENCH_CALLGRIND_PROFILE_H_

#include <cstdint>
#include <istream>
#include <map>
#include <string>

namespace vantiro {
namespace bench {

struct CallgrindProfile {
  // What the program called it; empty for the one at the program's end.
  std::string name;
  // The instructions in the functions of each object file.
  std::map<std::string, uint64_t> instructions;
};

CallgrindProfile ReadCallgrindProfile(std::istream* in);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_CALLGRIND_PROFILE_H_
