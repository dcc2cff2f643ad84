// Measurements as JSON, for programs.

#ifndef VANTIRO_BENCH_JSON_REPORT_H_
#define VANTIRO_BENCH_JSON_REPORT_H_

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "bench/libraries.h"
#include "bench/measurement.h"

namespace vantiro {
namespace bench {

using Json = nlohmann::ordered_json;

// `unit` is the key of the costs: "nanoseconds" or "instructions".
Json ToJson(const std::vector<Measurement>& measurements,
            const std::vector<BuiltVariant>& variants, const std::string& unit);

// Of each operation and variant: the geometric mean of its costs to stock's.
Json MeansToJson(const std::vector<Measurement>& measurements,
                 const std::vector<BuiltVariant>& variants);

Json ToJson(const std::vector<Library>& libraries);

Json ToJson(const std::vector<ObjectSize>& sizes);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_JSON_REPORT_H_
