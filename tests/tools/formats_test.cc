// Records are the same after they were written as text or JSON and read again.

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bytes.h"
#include "tests/support/vectors.h"
#include "tools/formats/format_error.h"
#include "tools/formats/json.h"
#include "tools/formats/text_format.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {
namespace {

using tests::FromHex;
using tests::ToHex;

const Descriptor& Type(const std::string& name) {
  return Schema::BuiltIn().FindMessage(name);
}

std::string ToText(const Record& record) {
  std::ostringstream text;
  WriteText(record, Style(false), &text);
  return text.str();
}

void ExpectRoundTrip(const Descriptor& type, const std::string& bytes) {
  SCOPED_TRACE(type.full_name() + "\n  bytes: " + ToHex(bytes));
  Record record = MakeRecord(ReadRecord(type, bytes));
  const std::string written = ToHex(Serialize(record));
  RemoveDefaults(&record);
  for (const bool with_zeros : {false, true}) {
    if (with_zeros) AddDefaults(&record);
    EXPECT_EQ(ToHex(Serialize(ReadText(type, ToText(record)))), written);
    EXPECT_EQ(ToHex(Serialize(ReadJson(type, ToJson(record).dump()))), written);
  }
}

TEST(Formats, RoundTripEveryVector) {
  int count = 0;
  for (const tests::Vector& vector : tests::AllVectors()) {
    const Descriptor& type = Type(vector.type_name);
    if (!ReadRecord(type, vector.a).ok()) continue;
    ExpectRoundTrip(type, vector.a);
    ++count;
  }
  EXPECT_GT(count, 2000);
}

TEST(Formats, RoundTripEveryRoot) {
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    ExpectRoundTrip(*root,
                    tests::ReadData("records/" + root->full_name() + ".bin"));
  }
}

TEST(Formats, RoundTripTheBitsOfFloats) {
  std::string bytes = FromHex("12 00 12");
  std::string run;
  // A walk over all exponents, with odd steps, both signs and every NaN.
  for (uint64_t bits = 0; bits <= UINT32_MAX; bits += 2500173) {
    for (int i = 0; i < 4; ++i) run += static_cast<char>(bits >> (8 * i));
  }
  run += FromHex("00 00 00 80 01 00 c0 ff 00 00 80 7f 00 00 80 ff");
  for (size_t size = run.size(); size > 0; size >>= 7) {
    bytes += static_cast<char>(size | (size >= 0x80 ? 0x80 : 0));
  }
  ExpectRoundTrip(Type("ZhawbInformation"), bytes + run);
}

TEST(Formats, ReadTheReferenceText) {
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    const std::string name = "records/" + root->full_name();
    EXPECT_EQ(
        ToHex(Serialize(ReadText(*root, tests::ReadData(name + ".txtpb")))),
        ToHex(tests::ReadData(name + ".bin")))
        << name;
  }
}

struct InvalidCase {
  const char* text;
  const char* error;
};

template <typename Read>
std::string ErrorOf(const Read& read, const char* text) {
  try {
    read(Type("FaceRoiType"), text);
  } catch (const FormatError& error) {
    return error.what();
  }
  return "";
}

TEST(Formats, RejectInvalidTextWithItsPosition) {
  for (const InvalidCase& c : std::vector<InvalidCase>{
           {"field_1: x", "line 1, column 10: cannot read x as uint32"},
           {"field_1: 1\nfield_1: 2",
            "line 2, column 1: expected a singular field only once, "
            "found field_1"},
           {"region_dimension_list {",
            "line 1, column 24: expected a field of "
            "z3a_debug_data.z3abase.RegionDimension, "
            "found the end"},
           {"1: 5",
            "line 1, column 1: field 1 is not unknown: its name is "
            "field_1"},
           {"15: 0x123",
            "line 1, column 5: expected a number, 8 or 16 "
            "hexadecimal digits after 0x, a string or {, found "
            "0x123"},
           {"0: 1", "line 1, column 1: invalid field number 0"}}) {
    EXPECT_EQ(ErrorOf(ReadText, c.text), c.error) << c.text;
  }
}

TEST(Formats, RejectInvalidJsonWithItsPath) {
  for (const InvalidCase& c : std::vector<InvalidCase>{
           {R"({"field_1": -1})", "in field_1: cannot read -1 as uint32"},
           {R"({"region_dimension_list": [{}, {"field_1": "x"}]})",
            "in region_dimension_list[1].field_1: cannot read \"x\" as float"},
           {R"({"other": 1})",
            "in other: z3a_debug_data.z3abase.FaceRoiType has no such field"},
           {R"({"@unknown": [{"number": 15, "fixed32": "0x100000000"}]})",
            "in @unknown.fixed32: expected a number up to 4294967295 "
            "instead of \"0x100000000\""},
           {R"({"field_1": 1, "field_1": 2})",
            "\"field_1\" occurs twice in an object"},
           {"[]", "expected an object"}}) {
    EXPECT_EQ(ErrorOf(ReadJson, c.text), c.error) << c.text;
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
