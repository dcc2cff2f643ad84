// Measures the library's classes beside those that the installed protoc makes
// of the same schema.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "bench/baseline.h"
#include "bench/json_report.h"
#include "bench/libraries.h"
#include "bench/measurement.h"
#include "bench/report.h"
#include "bench/variants.h"

namespace vantiro {
namespace bench {
namespace {

// Counts may grow by so much before the baseline has to be changed.
constexpr double kAllowedGrowth = 0.02;

struct Options {
  std::string operation;
  std::string workload;
  int batches = 200;
  bool json = false;
  bool instructions = false;
  bool stock = false;
  bool baseline = false;
};

void ReportTimes(const Options& options) {
  const std::vector<BuiltVariant>& variants = BuiltVariants();
  const std::vector<Library> libraries = ExamineLibraries(variants);
  const std::vector<ObjectSize> sizes =
      ObjectSizes(Load(variants[0]), Load(variants[1]));
  const std::vector<Measurement> measurements = MeasureTimes(
      variants, options.operation, options.workload, options.batches);
  if (options.json) {
    const Json json = {
        {"cases", ToJson(measurements, variants, "nanoseconds")},
        {"mean_ratios_to_stock", MeansToJson(measurements, variants)},
        {"libraries", ToJson(libraries)},
        {"object_sizes", ToJson(sizes)}};
    std::printf("%s\n", json.dump(2).c_str());
    return;
  }
  PrintTimes(measurements);
  PrintLibraries(libraries);
  PrintObjectSizes(sizes);
}

// Whether the baseline's counts were made under the same conditions.
bool IsComparable(const Baseline& baseline) {
  const Environment& then = baseline.environment();
  const Environment now = ThisEnvironment();
  if (then == now) return true;
  std::fprintf(stderr,
               "bench: not compared with the baseline, since counts depend on "
               "compiler and runtime:\n  baseline: %s, %s, %s\n  here:     %s, "
               "%s, %s\n",
               then.architecture.c_str(), then.compiler.c_str(),
               then.runtime.c_str(), now.architecture.c_str(),
               now.compiler.c_str(), now.runtime.c_str());
  return false;
}

// Tells what has grown too much, and how many cases did.
int CountGrown(const std::vector<Measurement>& measurements,
               const Baseline& baseline) {
  int grown = 0;
  for (const Measurement& measurement : measurements) {
    const double growth =
        std::max(baseline.InstructionGrowth(measurement).value_or(0),
                 baseline.AllocationGrowth(measurement).value_or(0));
    if (growth <= kAllowedGrowth) continue;
    std::fprintf(stderr, "bench: %s of %s has grown by %.1f %%\n",
                 measurement.measured.operation.c_str(),
                 measurement.measured.workload.name.c_str(), growth * 100);
    ++grown;
  }
  return grown;
}

// Gives the program's exit status.
int ReportInstructions(const Options& options) {
  std::vector<BuiltVariant> variants = BuiltVariants();
  if (!options.stock) variants.resize(1);
  const std::vector<Measurement> measurements =
      MeasureInstructions(variants, options.operation, options.workload);
  if (options.baseline) Baseline(measurements).Write();
  const Baseline baseline = Baseline::Read();
  const bool is_comparable = IsComparable(baseline);
  if (options.json) {
    const Json json = {
        {"cases", ToJson(measurements, variants, "instructions")}};
    std::printf("%s\n", json.dump(2).c_str());
  } else {
    PrintInstructions(measurements, is_comparable ? &baseline : nullptr);
  }
  return is_comparable && CountGrown(measurements, baseline) > 0 ? 1 : 0;
}

int Run(int argc, char* argv[]) {
  Options options;
  CLI::App program(
      "Measures the library's classes beside protoc's, linked in the ordinary "
      "way and without calls through the PLT (symbolic).");
  CLI::Option* const operation = program.add_option(
      "--operation", options.operation, "Only those with this in their name");
  CLI::Option* const workload = program.add_option(
      "--workload", options.workload, "Only those with this in their name");
  CLI::Option* const batches =
      program
          .add_option("--batches", options.batches,
                      "How often each is timed; the least time is told")
          ->capture_default_str()
          ->check(CLI::Range(1, 1000000));
  program.add_flag("--json", options.json, "Tell it as JSON");
  CLI::Option* const instructions =
      program
          .add_flag("--instructions", options.instructions,
                    "Count instructions under callgrind instead, of the "
                    "library's classes only. Exit status 1 if instructions or "
                    "allocations have grown by more than 2 % since the "
                    "baseline")
          ->excludes(batches);
  program
      .add_flag("--stock", options.stock,
                "Count the instructions of protoc's classes too")
      ->needs(instructions);
  program
      .add_flag("--baseline", options.baseline,
                "Make the counts the baseline, in bench/baseline.json")
      ->needs(instructions)
      ->excludes(operation)
      ->excludes(workload);
  CLI11_PARSE(program, argc, argv);
  if (options.instructions) return ReportInstructions(options);
  ReportTimes(options);
  return 0;
}

}  // namespace
}  // namespace bench
}  // namespace vantiro

int main(int argc, char* argv[]) {
  try {
    return vantiro::bench::Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 2;
  }
}
