// The report agrees with the bytes that the library's class writes.

#include "tools/check/canonical_form.h"

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/differences.h"
#include "tests/support/vectors.h"
#include "tools/check/classes.h"

namespace vantiro {
namespace tools {
namespace {

CanonicalFormReport Check(const std::string& type, const std::string& bytes) {
  return CheckCanonicalForm(Schema::BuiltIn().FindMessage(type), bytes);
}

// Whether the bytes are canonical; nothing if the class does not parse them.
std::optional<bool> ExplainedAsByTheClass(const std::string& type,
                                          const std::string& bytes) {
  SCOPED_TRACE(type + "\n  bytes: " + tests::ToHex(bytes));
  const auto message = NewMessage(type);
  const bool parses = message->ParseFromString(bytes);
  const CanonicalFormReport report = Check(type, bytes);
  EXPECT_EQ(report.parses, parses);
  EXPECT_EQ(report.fault.empty(), parses);
  if (!parses) return std::nullopt;
  EXPECT_EQ(report.is_canonical, message->SerializeAsString() == bytes);
  EXPECT_EQ(report.differences.empty(), report.is_canonical);
  for (const FlagCount& difference : report.differences) {
    EXPECT_NE(difference.name, "different bytes");
  }
  return report.is_canonical;
}

TEST(CanonicalForm, IsExplainedForEveryVector) {
  const google::protobuf::LogSilencer silence;
  tests::Differences differences;
  int canonical_count = 0;
  int other_count = 0;
  for (const tests::Vector& vector : tests::AllVectors()) {
    std::optional<bool> is_canonical;
    differences.Check(vector.id, [&] {
      is_canonical = ExplainedAsByTheClass(vector.type_name, vector.a);
    });
    if (is_canonical) ++(*is_canonical ? canonical_count : other_count);
  }
  EXPECT_GT(canonical_count, 1000);
  EXPECT_GT(other_count, 500);
}

// "name count offset, ..."
std::string Text(const std::vector<FlagCount>& counts) {
  std::string text;
  for (const FlagCount& count : counts) {
    text += (text.empty() ? "" : ", ") + count.name + ' ' +
            std::to_string(count.count) + ' ' + std::to_string(count.offset);
  }
  return text;
}

struct Case {
  const char* type;
  const char* hex;
  const char* differences;
  const char* remarks;
};

TEST(CanonicalForm, CountsFlagsOnceAndHasTheOffsetOfTheFirst) {
  for (const Case& c : std::vector<Case>{
           {"MultiCamSwitchResult", "0a 03 63 64 01", "",
            "undeclared enum number 2 2"},
           {"MultiCamSwitchResult", "0a 01 63 0a 03 01 80 00",
            "further packed run 1 3, overlong value 1 6",
            "undeclared enum number 1 2"},
           {"RegionDimension", "38 85 00 b8 00 85 00 38 00",
            "overlong value 2 0, overlong tag 1 3, duplicate field 2 3, "
            "default value written 1 7",
            ""},
           {"FaceRoiType", "12 03 38 85 00 12 07 38 00 0d 00 00 c0 7f",
            "overlong value 1 2, default value written 1 7, out of order 1 9",
            "NaN 1 9"},
       }) {
    const CanonicalFormReport report = Check(c.type, tests::FromHex(c.hex));
    EXPECT_EQ(Text(report.differences), c.differences) << c.hex;
    EXPECT_EQ(Text(report.remarks), c.remarks) << c.hex;
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
