// Records are the same after they were written as text or JSON and read again.

#include <google/protobuf/stubs/strutil.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "tests/support/bytes.h"
#include "tests/support/vectors.h"
#include "tools/formats/format_error.h"
#include "tools/formats/json.h"
#include "tools/formats/text_format.h"
#include "tools/io/hex_text.h"
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
  Record record = DecodeRecord(type, bytes).record;
  const std::string written = ToHex(Serialize(record));
  RemoveDefaults(&record);
  for (const bool with_zeros : {false, true}) {
    if (with_zeros) AddDefaults(&record);
    EXPECT_EQ(ToHex(Serialize(ReadText(type, ToText(record)))), written);
    EXPECT_EQ(ToHex(Serialize(ReadJson(type, RecordJson(record, {})))),
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

// What the program makes of `input`: bytes in hexadecimal, or an error.
std::string Result(const std::string& format, const std::string& type,
                   const std::string& input) {
  try {
    if (format == "hex") return ToHex(ReadHexText(input));
    const auto read = format == "text" ? ReadText : ReadJson;
    return ToHex(Serialize(read(Type(type), input)));
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

TEST(Formats, ReadOtherNotationsAndRejectWhatIsInvalidWithItsPlace) {
  const auto rows = tests::ReadTable("notations.tsv", 4);
  EXPECT_GT(rows.size(), 100u);
  for (const auto& row : rows) {
    const std::string input = google::protobuf::UnescapeCEscapeString(row[2]);
    EXPECT_EQ(Result(row[0], row[1], input), row[3] == "\"\"" ? "" : row[3])
        << input;
  }
}

TEST(Formats, ReadALongLineThatBeginsLikeALog) {
  EXPECT_EQ(Result("hex", "-", "D/" + std::string(500000, 'a') + ":"),
            "line 1, column 2: not a hexadecimal digit");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
