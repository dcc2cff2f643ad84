#include "bench/load_time.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <stdexcept>

namespace vantiro {
namespace bench {
namespace {

// In a process of its own, since a library cannot always be unloaded.
void LoadOnce(const std::string& library, int out) {
  if (dlopen(VANTIRO_BENCH_RUNTIME_LIBRARY, RTLD_NOW) == nullptr) _exit(1);
  const auto start = std::chrono::steady_clock::now();
  const bool is_loaded =
      dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr;
  const double time = std::chrono::duration<double, std::nano>(
                          std::chrono::steady_clock::now() - start)
                          .count();
  _exit(is_loaded && write(out, &time, sizeof time) == sizeof time ? 0 : 1);
}

double TimeOfOneLoad(const std::string& library) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) LoadOnce(library, ends[1]);
  close(ends[1]);
  double time = 0;
  const bool is_read = read(ends[0], &time, sizeof time) == sizeof time;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  if (!is_read) throw std::runtime_error(library + " cannot be loaded");
  return time;
}

}  // namespace

double LoadTime(const std::string& library, int rounds) {
  double least = std::numeric_limits<double>::infinity();
  for (; rounds > 0; --rounds) least = std::min(least, TimeOfOneLoad(library));
  return least;
}

}  // namespace bench
}  // namespace vantiro
