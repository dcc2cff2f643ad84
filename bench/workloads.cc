#include "bench/workloads.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>
#include <utility>

namespace vantiro {
namespace bench {
namespace {

constexpr const char* kPackage = "z3a_debug_data.";
constexpr const char* kFullRecords[] = {
    "zabc.DebugExif",    "zaf.DebugExif",        "zhawb.DebugExif",
    "zabc.DebugCompact", "zaf.ZAfVideoMetadata", "zaf.ZAfExifDebugOutput",
    "zatm.DebugExif",
};
constexpr const char* kSparseRecords[] = {
    "zabc.DebugExif",
    "zaf.DebugExif",
    "zhawb.DebugExif",
};
// Gives each of them lists and sub-messages, down to the last level.
constexpr uint32_t kSparseSeed = 9;
constexpr const char* kMix = "mix of all roots";
// For SerializeAsString: a string is made for each record.
constexpr const char* kSmallRecords[] = {
    "zabc.DebugCompact",
    "zaf.ZAfVideoMetadata",
    "zatm.DebugExif",
};

// Each root full and with three sparse fills, in an order that no branch
// predictor knows by heart.
Workload Mix(const Variant& variant) {
  Workload mix = {kMix, {}};
  for (const std::string& root : variant.Roots()) {
    for (uint32_t seed = 0; seed < 4; ++seed) {
      mix.records.push_back({root, seed > 0, seed});
    }
  }
  // std::shuffle may differ between libraries.
  std::minstd_rand random;
  for (size_t i = mix.records.size(); i > 1; --i) {
    std::swap(mix.records[i - 1], mix.records[random() % i]);
  }
  return mix;
}

std::vector<Workload> AllWorkloads(const Variant& variant) {
  std::vector<Workload> workloads;
  for (const std::string root : kFullRecords) {
    workloads.push_back({root, {{kPackage + root, false, 0}}});
  }
  for (const std::string root : kSparseRecords) {
    workloads.push_back(
        {root + " sparse", {{kPackage + root, true, kSparseSeed}}});
  }
  workloads.push_back(Mix(variant));
  return workloads;
}

template <typename Names>
bool IsAmong(const Names& names, const std::string& name) {
  return std::count(std::begin(names), std::end(names), name) > 0;
}

bool IsMeasured(const std::string& operation, const Workload& workload) {
  if (IsMix(workload)) {
    return operation == "serialize" || operation == "parse_arena";
  }
  if (operation == "serialize_as_string") {
    return IsAmong(kSmallRecords, workload.name);
  }
  // An empty record is the same, whatever it is filled with afterwards.
  return operation != "new_delete" || IsAmong(kFullRecords, workload.name);
}

bool Holds(const std::string& name, const std::string& part) {
  return name.find(part) != std::string::npos;
}

}  // namespace

bool IsMix(const Workload& workload) { return workload.name == kMix; }

std::vector<Case> AllCases(const Variant& variant, const std::string& operation,
                           const std::string& workload) {
  const std::vector<Workload> workloads = AllWorkloads(variant);
  std::vector<Case> cases;
  for (const std::string& name : variant.Operations()) {
    if (!Holds(name, operation)) continue;
    for (const Workload& candidate : workloads) {
      if (Holds(candidate.name, workload) && IsMeasured(name, candidate)) {
        cases.push_back({name, candidate});
      }
    }
  }
  return cases;
}

}  // namespace bench
}  // namespace vantiro
