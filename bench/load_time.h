// How long the dynamic linker takes to load a library.

#ifndef VANTIRO_BENCH_LOAD_TIME_H_
#define VANTIRO_BENCH_LOAD_TIME_H_

#include <string>

namespace vantiro {
namespace bench {

// The nanoseconds of dlopen with all symbols bound, at best. What the library
// needs is loaded before. Has to be called while this process has not loaded
// the library itself.
double LoadTime(const std::string& library, int rounds);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_LOAD_TIME_H_
