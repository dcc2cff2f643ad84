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
    EXPECT_EQ(ToHex(Serialize(ReadJson(type, ToJson(record, {}).dump()))),
              written);
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

struct NotationCase {
  const char* type;
  const char* text;
  const char* hex;
};

TEST(Formats, ReadOtherNotationsOfTheTextFormat) {
  for (const NotationCase& c : std::vector<NotationCase>{
           {"FaceRoiType", "field_1: 16; # a comment", "08 10"},
           {"FaceRoiType", "region_dimension_list: {field_7: 1}, field_1: 2",
            "08 02 12 02 38 01"},
           {"FaceRoiType",
            "region_dimension_list [{field_7: 1}, {}] field_1: 2",
            "08 02 12 02 38 01 12 00"},
           {"FlickerInfo", "field_3: 1 field_3: [-1, 2] field_3: []",
            "1a 03 02 01 04"},
           {"FlickerInfo", "field_3: []", ""},
           {"ZAfManualFocusConfig", "field_1: kDiopter", "08 01"},
           {"ZAfManualFocusConfig", "field_1: 1", "08 01"},
           {"ZAfManualFocusConfig", "field_1: -1",
            "08 ff ff ff ff ff ff ff ff ff 01"},
           {"ZAfFrameInputSmartRoi", "field_7: true", "38 01"},
           {"ZAfFrameInputSmartRoi", "field_7: false", ""},
           {"RegionDimension", "field_1: 1 field_2: -0.5 field_3: 1e3",
            "0d 00 00 80 3f 15 00 00 00 bf 1d 00 00 7a 44"},
           {"FaceRoiType",
            "field_1: 0x10; region_dimension_list < field_7: 017 >",
            "08 10 12 02 38 0f"},
           {"RegionDimension", "field_1: 1.5f field_2: -INF field_3: -nan",
            "0d 00 00 c0 3f 15 00 00 80 ff 1d 00 00 c0 ff"},
           {"ZAfFrameInputSmartRoi", "field_7: t", "38 01"},
           {"RegionDimension", "field_1: -0", ""},
           {"DebugString", "zhawb_debug: 'a' \"b\\n\"", "0a 03 61 62 0a"},
           {"FaceRoiType", "15 {15: 7 1 {}} 15: 18446744073709551615",
            "7b 78 07 0b 0c 7c 78 ff ff ff ff ff ff ff ff ff 01"},
           // A declared field of another wire type is unknown.
           {"FaceRoiType", "1: \"\" 2: 5", "0a 00 10 05"}}) {
    EXPECT_EQ(ToHex(Serialize(ReadText(Type(c.type), c.text))), c.hex)
        << c.text;
  }
}

TEST(Formats, ReadNestingUpTo100Levels) {
  for (const size_t depth : {100U, 101U}) {
    std::string text;
    std::string json = "[]";
    for (size_t i = 0; i < depth; ++i) {
      text = "15 {" + text + "}";
      json = R"([{"number": 15, "group": )" + json + "}]";
    }
    json = R"({"@unknown": )" + json + "}";
    const std::string bytes =
        std::string(depth, '\x7b') + std::string(depth, '\x7c');
    if (depth == 100) {
      EXPECT_EQ(Serialize(ReadText(Type("FaceRoiType"), text)), bytes);
      EXPECT_EQ(Serialize(ReadJson(Type("FaceRoiType"), json)), bytes);
    } else {
      EXPECT_THROW(ReadText(Type("FaceRoiType"), text), FormatError);
      EXPECT_THROW(ReadJson(Type("FaceRoiType"), json), FormatError);
    }
  }
}

struct InvalidCase {
  const char* text;
  const char* error;
  const char* type = "FaceRoiType";
};

template <typename Read>
std::string ErrorOf(const Read& read, const InvalidCase& c) {
  try {
    read(Type(c.type), c.text);
  } catch (const FormatError& error) {
    return error.what();
  }
  return "";
}

constexpr char kCamera[] = "ZHawbDebugCameraInformation";

TEST(Formats, RejectInvalidTextWithItsPosition) {
  for (const InvalidCase& c : std::vector<InvalidCase>{
           {"field_1: x", "line 1, column 10: expected an integer, found x"},
           {"field_1: 4294967296",
            "line 1, column 10: expected an integer up to 4294967295, found "
            "4294967296"},
           {"field_1: 2147483648",
            "line 1, column 10: expected an integer up to 2147483647, found "
            "2147483648",
            "ZAfManualFocusConfig"},
           {"field_1: nan(0x3f800000)",
            "line 1, column 14: expected the bits of a NaN, found 0x3f800000",
            "RegionDimension"},
           {"field_7: 2",
            "line 1, column 10: expected an integer up to 1, found 2",
            "ZAfFrameInputSmartRoi"},
           {"field_1 1", "line 1, column 9: expected :, found 1"},
           {"field_1: 1\nfield_1: 2",
            "line 2, column 1: expected a singular field only once, "
            "found field_1"},
           {"field_1: [1]", "line 1, column 10: expected an integer, found ["},
           {"field_3: [1 2]", "line 1, column 13: expected ], found 2",
            "FlickerInfo"},
           {"region_dimension_list {",
            "line 1, column 24: expected a field of "
            "z3a_debug_data.z3abase.RegionDimension, "
            "found the end"},
           {"region_dimension_list: 1",
            "line 1, column 24: expected {, found 1"},
           {"field_1: 1 }",
            "line 1, column 12: expected a field of "
            "z3a_debug_data.z3abase.FaceRoiType, found }"},
           {"sensor_name: 1", "line 1, column 14: expected a string, found 1",
            kCamera},
           {"sensor_name: \"a", "line 1, column 16: Unexpected end of string.",
            kCamera},
           {"sensor_name: \"\\xff\"",
            "line 1, column 14: the string is not UTF-8", kCamera},
           {"1: 5",
            "line 1, column 1: field 1 is not unknown: its name is "
            "field_1"},
           {"1: \"\"",
            "line 1, column 1: field 1 is not unknown: its name is sensor_name",
            kCamera},
           {"4: \"\"",
            "line 1, column 1: field 4 is not unknown: its name is field_4",
            "FlickerInfo"},
           {"15: 0x123",
            "line 1, column 5: expected a number, 8 or 16 "
            "hexadecimal digits after 0x, a string or {, found "
            "0x123"},
           {"15: 18446744073709551616",
            "line 1, column 5: expected a number, 8 or 16 hexadecimal digits "
            "after 0x, a string or {, found 18446744073709551616"},
           {"15 5", "line 1, column 4: expected :, found 5"},
           {"15 {field_1: 5}",
            "line 1, column 5: expected the number of an unknown field, found "
            "field_1"},
           {"536870912: 1", "line 1, column 1: invalid field number 536870912"},
           {"0: 1", "line 1, column 1: invalid field number 0"}}) {
    EXPECT_EQ(ErrorOf(ReadText, c), c.error) << c.text;
  }
}

TEST(Formats, RejectInvalidJsonWithItsPath) {
  for (const InvalidCase& c : std::vector<InvalidCase>{
           {R"({"field_1": -1})", "in field_1: cannot read -1 as uint32"},
           {R"({"field_1": [1]})", "in field_1: cannot read [1] as uint32"},
           {R"({"field1": 1.5})", "in field1: cannot read 1.5 as uint32"},
           {R"({"field1": 1e10})",
            "in field1: cannot read 10000000000.0 as uint32"},
           {R"({"field_1": 18446744073709551616})",
            "in field_1: cannot read 1.8446744073709552e+19 as sint64",
            "SensorHWLimit"},
           {R"({"field1": 1, "field_1": 1})",
            "in field_1: the field occurs twice, by both of its names"},
           {R"({"field1": "0x1p3"})",
            "in field1: cannot read \"0x1p3\" as float", "RegionDimension"},
           {R"({"field1": "nan"})", "in field1: cannot read \"nan\" as float",
            "RegionDimension"},
           {R"({"field1": 1e39})", "in field1: cannot read 1e+39 as float",
            "RegionDimension"},
           {R"({"@nan": {"field1": "0xffc00001"}})",
            "in @nan.field1: not a NaN", "RegionDimension"},
           {R"({"field1": "NaN", "@nan": {"field1": "0x3f800000"}})",
            "in @nan.field1: not a NaN", "RegionDimension"},
           {R"({"field2": ["NaN"], "@nan": {"field2[1]": "0xffc00001"}})",
            "in @nan.field2[1]: not a NaN", "ZhawbInformation"},
           {R"({"@nan": {"field7": "0xffc00001"}})",
            "in @nan.field7: no such float", "RegionDimension"},
           {R"({"sensorName": "a", "@not_utf8": {"sensorName": "ff"}})",
            "in @not_utf8.sensorName: expected a string that has no other "
            "value",
            kCamera},
           {R"({"@other": 1})",
            "in @other: expected @unknown, @nan, @not_utf8 or @error"},
           {R"({"region_dimension_list": [{}, {"field_1": "x"}]})",
            "in region_dimension_list[1].field_1: cannot read \"x\" as float"},
           {R"({"region_dimension_list": {}})",
            "in region_dimension_list: expected an array"},
           {R"({"region_dimension_list": [1]})",
            "in region_dimension_list[0]: expected an object"},
           {R"({"sensor_name": 1})",
            "in sensor_name: expected a string instead of 1", kCamera},
           {R"({"field_8": "0"})",
            "in field_8: expected bytes as a string in base64", kCamera},
           {R"({"field_8": "a*=="})",
            "in field_8: expected bytes as a string in base64", kCamera},
           {R"({"field_8": 0})",
            "in field_8: expected bytes as a string in base64", kCamera},
           {R"({"other": 1})",
            "in other: z3a_debug_data.z3abase.FaceRoiType has no such field"},
           {R"({"@unknown": [{"number": 15, "fixed32": "0x100000000"}]})",
            "in @unknown.fixed32: expected a number up to 4294967295 "
            "instead of \"0x100000000\""},
           {R"({"@unknown": [{"number": 15, "varint": -1}]})",
            "in @unknown.varint: expected a number up to "
            "18446744073709551615 instead of -1"},
           {R"({"@unknown": {}})",
            "in @unknown: expected an array of unknown fields"},
           {R"({"@unknown": [{"number": 15}]})",
            "in @unknown: expected a number and one value of an unknown field"},
           {R"({"@unknown": [{"number": 15, "fixed16": 1}]})",
            "in @unknown.fixed16: expected varint, fixed32, fixed64, "
            "length_delimited or group"},
           {R"({"@unknown": [{"number": 1, "varint": 1}]})",
            "in @unknown.varint: field 1 is not unknown: its name is field_1"},
           {R"({"@unknown": [{"number": 536870912, "fixed64": 1}]})",
            "in @unknown.fixed64: invalid field number 536870912"},
           {R"({"field_1": 1, "field_1": 2})",
            "\"field_1\" occurs twice in an object"},
           {"[]", "expected an object"}}) {
    EXPECT_EQ(ErrorOf(ReadJson, c), c.error) << c.text;
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
