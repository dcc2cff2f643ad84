#include "tests/conformance/wire/reading.h"

#include <gtest/gtest.h>

#include <memory>

namespace vantiro {
namespace tests {

std::vector<Given> WaysFor(const std::string& ways) {
  if (ways == "at hand") return {{0, false}, {4096, false}, {4096, true}};
  if (ways == "byte by byte") return {{1, false}, {1, true}};
  EXPECT_TRUE(ways.empty() || ways == "limited" || ways == "open-ended");
  std::vector<Given> result;
  if (ways != "open-ended") result.push_back({0, false});
  for (const int block : {1, 2, 3, 7, 16, 17, 4096}) {
    if (ways != "open-ended") result.push_back({block, true});
    if (ways != "limited") result.push_back({block, false});
  }
  return result;
}

void ExpectReading(const Case& wanted, const std::vector<Given>& ways) {
  const Type* const type = FindType(wanted.type_name);
  ASSERT_NE(type, nullptr) << wanted.type_name;
  const std::string input = FromHex(wanted.input);
  for (const Given given : ways) {
    for (const ReadRoad& road : RoadsFor(given)) {
      SCOPED_TRACE(wanted.type_name + " of " + wanted.input + "\n  " +
                   road.name + ", blocks of " + std::to_string(given.block) +
                   (given.has_limit ? ", limit" : ""));
      const std::unique_ptr<MessageLite> message(type->create(nullptr));
      const bool reads = wanted.verdict == "reads" ||
                         (wanted.verdict == "stops" && !road.is_parse);
      EXPECT_EQ(road.read(*type, input, message.get()), reads);
      const std::string written = ToHex(Serialize(*type, *message));
      if (wanted.output != "*") {
        EXPECT_EQ(written, ToHex(FromHex(wanted.output)));
      }
    }
  }
}

}  // namespace tests
}  // namespace vantiro
