// Measurements as tables for people.

#ifndef VANTIRO_BENCH_REPORT_H_
#define VANTIRO_BENCH_REPORT_H_

#include <vector>

#include "bench/baseline.h"
#include "bench/libraries.h"
#include "bench/measurement.h"

namespace vantiro {
namespace bench {

// The variants are the library's classes, stock, and stock without PLT.
void PrintTimes(const std::vector<Measurement>& measurements);

// The first variant is the library's. With other variants, ratios are given;
// with a baseline, how much counts have grown.
void PrintInstructions(const std::vector<Measurement>& measurements,
                       const Baseline* baseline);

void PrintLibraries(const std::vector<Library>& libraries);

void PrintObjectSizes(const std::vector<ObjectSize>& sizes);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_REPORT_H_
