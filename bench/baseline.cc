#include "bench/baseline.h"

#include <sys/utsname.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "bench/elf_file.h"

namespace vantiro {
namespace bench {
namespace {

using Json = nlohmann::ordered_json;

std::string NameOf(const Case& measured) {
  return measured.operation + " " + measured.workload.name;
}

std::optional<double> Growth(const std::map<std::string, uint64_t>& counts,
                             const std::string& name, double now) {
  const auto found = counts.find(name);
  if (found == counts.end()) return std::nullopt;
  const auto before = static_cast<double>(found->second);
  if (before == 0) return now == 0 ? 0 : 1;
  return now / before - 1;
}

}  // namespace

Environment ThisEnvironment() {
  utsname machine;
  uname(&machine);
  return {machine.machine, VANTIRO_BENCH_COMPILER,
          VANTIRO_BENCH_RUNTIME ", build ID " +
              ElfFile(VANTIRO_BENCH_RUNTIME_LIBRARY).BuildId()};
}

Baseline::Baseline(const std::vector<Measurement>& measurements)
    : environment_(ThisEnvironment()) {
  for (const Measurement& measurement : measurements) {
    const Cost& cost = measurement.costs[0];
    const std::string name = NameOf(measurement.measured);
    instructions_[name] = static_cast<uint64_t>(cost.value);
    allocations_[name] = cost.allocations.count;
  }
}

Baseline Baseline::Read() {
  std::ifstream file(VANTIRO_BENCH_BASELINE);
  if (!file) throw std::runtime_error("no " VANTIRO_BENCH_BASELINE);
  const Json json = Json::parse(file);
  Baseline baseline;
  baseline.environment_ = {json.at("architecture"), json.at("compiler"),
                           json.at("runtime")};
  baseline.instructions_ = json.at("instructions").get<Counts>();
  baseline.allocations_ = json.at("allocations").get<Counts>();
  return baseline;
}

void Baseline::Write() const {
  const Json json = {{"architecture", environment_.architecture},
                     {"compiler", environment_.compiler},
                     {"runtime", environment_.runtime},
                     {"instructions", instructions_},
                     {"allocations", allocations_}};
  std::ofstream file(VANTIRO_BENCH_BASELINE);
  file << json.dump(2) << "\n";
  if (!file.flush()) {
    throw std::runtime_error("cannot write " VANTIRO_BENCH_BASELINE);
  }
}

std::optional<double> Baseline::InstructionGrowth(
    const Measurement& now) const {
  return Growth(instructions_, NameOf(now.measured), now.costs[0].value);
}

std::optional<double> Baseline::AllocationGrowth(const Measurement& now) const {
  return Growth(allocations_, NameOf(now.measured),
                static_cast<double>(now.costs[0].allocations.count));
}

}  // namespace bench
}  // namespace vantiro
