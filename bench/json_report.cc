#include "bench/json_report.h"

namespace vantiro {
namespace bench {

Json ToJson(const std::vector<Measurement>& measurements,
            const std::vector<BuiltVariant>& variants,
            const std::string& unit) {
  Json cases = Json::array();
  for (const Measurement& measurement : measurements) {
    Json entry = {{"operation", measurement.measured.operation},
                  {"workload", measurement.measured.workload.name},
                  {"bytes", measurement.size}};
    if (measurement.memcpy_time > 0) {
      entry["memcpy_nanoseconds"] = measurement.memcpy_time;
    }
    for (size_t i = 0; i < variants.size(); ++i) {
      const Cost& cost = measurement.costs[i];
      entry[variants[i].name] = {{unit, cost.value},
                                 {"allocations", cost.allocations.count},
                                 {"allocated_bytes", cost.allocations.size}};
    }
    cases.push_back(std::move(entry));
  }
  return cases;
}

Json MeansToJson(const std::vector<Measurement>& measurements,
                 const std::vector<BuiltVariant>& variants) {
  Json means;
  for (const Measurement& measurement : measurements) {
    const std::string& operation = measurement.measured.operation;
    for (size_t i = 0; i < variants.size(); ++i) {
      means[operation][variants[i].name] =
          MeanRatio(measurements, operation, i, 1);
    }
  }
  return means;
}

Json ToJson(const std::vector<Library>& libraries) {
  Json json;
  for (const Library& library : libraries) {
    json[library.variant] = {
        {"text", library.text_size},
        {"data", library.data_size},
        {"bss", library.bss_size},
        {"relocations", library.relocation_count},
        {"named_relocations", library.named_relocation_count},
        {"stripped", library.stripped_size},
        {"dlopen_nanoseconds", library.load_time}};
  }
  return json;
}

Json ToJson(const std::vector<ObjectSize>& sizes) {
  Json json;
  for (const ObjectSize& size : sizes) {
    json[size.root] = {{"ours", size.ours}, {"stock", size.stock}};
  }
  return json;
}

}  // namespace bench
}  // namespace vantiro
