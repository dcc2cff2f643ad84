// Instructions of each case, counted by callgrind.

#ifndef VANTIRO_BENCH_INSTRUCTIONS_H_
#define VANTIRO_BENCH_INSTRUCTIONS_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "bench/variants.h"

namespace vantiro {
namespace bench {

// The instructions of one run of each case, by its CountName. Those of the
// variant's library, of the lite runtime and of the plug-in are counted: the
// last one holds the inline functions of the headers. Those of other libraries
// are not, since the C library picks its functions by the machine that it runs
// on.
std::map<std::string, uint64_t> CountInstructions(
    const std::string& operation, const std::string& workload,
    const std::vector<BuiltVariant>& variants);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_INSTRUCTIONS_H_
