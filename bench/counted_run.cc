// Runs what is measured under callgrind, which counts each case apart. The
// program `bench` starts it, and reads what callgrind writes.
//
//   counted_run OPERATION WORKLOAD VARIANT...

#include "bench/counted_run.h"

#include <valgrind/callgrind.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "bench/variants.h"
#include "bench/workloads.h"

namespace vantiro {
namespace bench {
namespace {

void Count(const Variant& classes, const std::string& variant,
           const std::string& operation, const std::string& workload) {
  for (const Case& measured : AllCases(classes, operation, workload)) {
    const std::unique_ptr<Work> work =
        classes.Prepare(measured.operation, measured.workload.records);
    work->Run(1);
    const std::string name = CountName(variant, measured);
    CALLGRIND_TOGGLE_COLLECT;
    work->Run(kCountedRuns);
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.c_str());
  }
}

}  // namespace
}  // namespace bench
}  // namespace vantiro

int main(int argc, char* argv[]) {
  try {
    for (int i = 3; i < argc; ++i) {
      const vantiro::bench::BuiltVariant& variant =
          vantiro::bench::FindVariant(argv[i]);
      vantiro::bench::Count(vantiro::bench::Load(variant), variant.name,
                            argv[1], argv[2]);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "counted_run: %s\n", error.what());
    return 2;
  }
  return 0;
}
