// What a record holds goes into text and JSON and comes back, all of it.

#include "tools/formats.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bytes.h"
#include "tests/support/vectors.h"
#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {
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

void ExpectInverse(const Descriptor& type, const std::string& bytes) {
  SCOPED_TRACE(type.full_name() + "\n  bytes: " + ToHex(bytes));
  Record record = MakeRecord(ReadRecord(type, bytes));
  const std::string written = ToHex(Serialize(record));
  DropZeros(&record);
  for (const bool with_zeros : {false, true}) {
    if (with_zeros) AddZeros(&record);
    EXPECT_EQ(ToHex(Serialize(ReadText(type, ToText(record)))), written);
    EXPECT_EQ(ToHex(Serialize(ReadJson(type, ToJson(record).dump()))), written);
  }
}

TEST(Formats, GiveEveryReferenceVectorBack) {
  int held = 0;
  for (const tests::Vector& vector : tests::AllVectors()) {
    const Descriptor& type = Type(vector.type_name);
    if (!ReadRecord(type, vector.a).ok()) continue;
    ExpectInverse(type, vector.a);
    ++held;
  }
  EXPECT_GT(held, 2000);
}

TEST(Formats, GiveEveryRootBack) {
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    ExpectInverse(*root,
                  tests::ReadData("records/" + root->full_name() + ".bin"));
  }
}

TEST(Formats, GiveFloatsBackToTheBit) {
  std::string bytes = FromHex("12 00 12");
  std::string block;
  // A walk over all exponents, with odd steps, both signs and every NaN.
  for (uint64_t bits = 0; bits <= UINT32_MAX; bits += 2500173) {
    for (int i = 0; i < 4; ++i) block += static_cast<char>(bits >> (8 * i));
  }
  block += FromHex("00 00 00 80 01 00 c0 ff 00 00 80 7f 00 00 80 ff");
  for (size_t size = block.size(); size > 0; size >>= 7) {
    bytes += static_cast<char>(size | (size >= 0x80 ? 0x80 : 0));
  }
  ExpectInverse(Type("ZhawbInformation"), bytes + block);
}

TEST(Formats, ReadTextAsTheReferenceHasIt) {
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    const std::string name = "records/" + root->full_name();
    EXPECT_EQ(
        ToHex(Serialize(ReadText(*root, tests::ReadData(name + ".txtpb")))),
        ToHex(tests::ReadData(name + ".bin")))
        << name;
  }
}

struct Refused {
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

TEST(Formats, RefuseOtherTextWithThePlace) {
  for (const Refused& c : std::vector<Refused>{
           {"field_1: x",
            "line 1, column 10: a field of kind uint32 cannot "
            "hold x"},
           {"field_1: 1\nfield_1: 2",
            "line 2, column 1: expected each field but lists once, found "
            "field_1"},
           {"region_dimension_list {",
            "line 1, column 24: expected a field of "
            "z3a_debug_data.z3abase.RegionDimension, "
            "found the end"},
           {"1: 5",
            "line 1, column 1: field 1 is not unknown: it is called "
            "field_1"},
           {"15: 0x123",
            "line 1, column 5: expected a number, 8 or 16 "
            "hexadecimal digits behind 0x, a string or {, found "
            "0x123"},
           {"0: 1", "line 1, column 1: there is no field number 0"}}) {
    EXPECT_EQ(ErrorOf(ReadText, c.text), c.error) << c.text;
  }
}

TEST(Formats, RefuseOtherJsonWithThePath) {
  for (const Refused& c : std::vector<Refused>{
           {R"({"field_1": -1})",
            "in field_1: a field of kind uint32 cannot hold -1"},
           {R"({"region_dimension_list": [{}, {"field_1": "x"}]})",
            "in region_dimension_list[1].field_1: a field of kind float cannot "
            "hold \"x\""},
           {R"({"other": 1})",
            "in other: z3a_debug_data.z3abase.FaceRoiType has no such field"},
           {R"({"@unknown": [{"number": 15, "fixed32": "0x100000000"}]})",
            "in @unknown.fixed32: not a number that fits: \"0x100000000\""},
           {R"({"field_1": 1, "field_1": 2})",
            "\"field_1\" stands twice in an object"},
           {"[]", "a message is an object in braces"}}) {
    EXPECT_EQ(ErrorOf(ReadJson, c.text), c.error) << c.text;
  }
}

}  // namespace
}  // namespace inspection
}  // namespace vantiro
