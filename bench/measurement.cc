#include "bench/measurement.h"

#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>

#include "bench/counted_run.h"
#include "bench/instructions.h"
#include "bench/timing.h"

namespace vantiro {
namespace bench {
namespace {

using Works = std::vector<std::unique_ptr<Work>>;

// The size of all records.
size_t CheckBytes(const std::vector<const Variant*>& variants,
                  const Workload& workload) {
  size_t size = 0;
  for (const Record& record : workload.records) {
    const std::string bytes = variants[0]->Serialize(record);
    for (const Variant* variant : variants) {
      if (variant->Serialize(record) != bytes) {
        throw std::runtime_error("the variants write different bytes for " +
                                 workload.name);
      }
    }
    size += bytes.size();
  }
  return size;
}

// All cases, with everything but the values of the costs. `measure` gets the
// prepared work of each and gives those.
template <typename Measure>
std::vector<Measurement> MeasureCases(const std::vector<BuiltVariant>& built,
                                      const std::string& operation,
                                      const std::string& workload,
                                      const Measure& measure) {
  std::vector<const Variant*> variants;
  for (const BuiltVariant& variant : built) variants.push_back(&Load(variant));
  const std::vector<Case> cases = AllCases(*variants[0], operation, workload);
  if (cases.empty()) throw std::runtime_error("no case has such a name");
  std::vector<Measurement> measurements;
  for (const Case& measured : cases) {
    Measurement measurement = {
        measured, CheckBytes(variants, measured.workload), {}, 0};
    Works works;
    for (const Variant* variant : variants) {
      works.push_back(
          variant->Prepare(measured.operation, measured.workload.records));
      measurement.costs.push_back({0, CountAllocations(works.back().get())});
    }
    measure(works, &measurement);
    measurements.push_back(measurement);
  }
  return measurements;
}

}  // namespace

double MeanRatio(const std::vector<Measurement>& measurements,
                 const std::string& operation, size_t variant, size_t to) {
  double logarithms = 0;
  int count = 0;
  for (const Measurement& measurement : measurements) {
    if (measurement.measured.operation != operation ||
        IsMix(measurement.measured.workload)) {
      continue;
    }
    logarithms += std::log(measurement.costs[variant].value /
                           measurement.costs[to].value);
    ++count;
  }
  return std::exp(logarithms / count);
}

std::vector<Measurement> MeasureTimes(const std::vector<BuiltVariant>& variants,
                                      const std::string& operation,
                                      const std::string& workload,
                                      int batches) {
  return MeasureCases(
      variants, operation, workload,
      [batches](const Works& works, Measurement* measurement) {
        const std::vector<double> times = LeastTimes(works, batches);
        for (size_t i = 0; i < times.size(); ++i) {
          measurement->costs[i].value = times[i];
        }
        measurement->memcpy_time = TimeOfMemcpy(measurement->size, batches);
      });
}

std::vector<Measurement> MeasureInstructions(
    const std::vector<BuiltVariant>& variants, const std::string& operation,
    const std::string& workload) {
  const std::map<std::string, uint64_t> counts =
      CountInstructions(operation, workload, variants);
  return MeasureCases(
      variants, operation, workload,
      [&](const Works& /*works*/, Measurement* measurement) {
        for (size_t i = 0; i < variants.size(); ++i) {
          measurement->costs[i].value = static_cast<double>(
              counts.at(CountName(variants[i].name, measurement->measured)));
        }
      });
}

}  // namespace bench
}  // namespace vantiro
