// The tree agrees with the library's class on the same bytes.

#include "tools/wire/record_tree.h"

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/differences.h"
#include "tests/support/vectors.h"
#include "tools/check/classes.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {
namespace {

using tests::FromHex;
using tests::ToHex;

RecordTree Read(const std::string& type, const std::string& bytes) {
  return ReadRecord(Schema::BuiltIn().FindMessage(type), bytes);
}

void ExpectAgreement(const std::string& type, const std::string& bytes) {
  const auto message = NewMessage(type);
  ASSERT_NE(message, nullptr) << type;
  const bool parsed = message->ParseFromString(bytes);
  const RecordTree tree = Read(type, bytes);
  SCOPED_TRACE(type + "\n  bytes: " + ToHex(bytes) +
               (tree.ok() ? "" : "\n  fault: " + tree.fault->Text()));
  EXPECT_EQ(tree.ok(), parsed);
  if (!parsed) return;
  const std::string written = message->SerializeAsString();
  EXPECT_EQ(ToHex(Serialize(DecodeRecord(*tree.type, tree.bytes).record)),
            ToHex(written));
  EXPECT_EQ(IsCanonical(tree), written == bytes);
}

TEST(RecordTree, AgreesWithTheClassOnEveryVector) {
  const google::protobuf::LogSilencer silence;
  tests::Differences differences;
  int count = 0;
  for (const tests::Vector& vector : tests::AllVectors()) {
    differences.Check(vector.id, [&] {
      ExpectAgreement(vector.type_name, vector.a);
      if (vector.has_b) ExpectAgreement(vector.type_name, vector.b);
    });
    ++count;
  }
  EXPECT_GT(count, 6000);
}

struct FaultCase {
  const char* type;
  const char* hex;
  const char* text;
};

TEST(RecordTree, ReportsWhereAndWhyARecordIsDamaged) {
  for (const FaultCase& c : std::vector<FaultCase>{
           {"RegionDimension", "08 01 0d 00 00",
            "offset 0x3 (3), in field_1: float needs 4 bytes, 2 left"},
           {"FaceRoiType", "08 01 12 00 12 05 0d 00 00",
            "offset 0x7 (7), in region_dimension_list[1].field_1: "
            "float needs 4 bytes, 2 left"},
           {"ZhawbInformation", "12 03 00 00 80",
            "offset 0x1 (1), in field_2[0]: a packed run of 3 bytes does not "
            "hold whole floats"},
           {"DebugString", "0a 02 c3 28",
            "offset 0x2 (2), in zhawb_debug: the string is not UTF-8"},
           {"RegionDimension", "7b 08 01",
            "offset 0x3 (3), in 15: the group has no end-group tag"},
           {"RegionDimension", "38 80 80 80 80 80 80 80 80 80 80 00",
            "offset 0x1 (1), in field_7: varint has more than 10 bytes"},
           {"RegionDimension", "0d 00 00 80 3f 00",
            "offset 0x5 (5): a tag of value 0"},
           {"RegionDimension", "05", "offset 0x0 (0), in 0: field number 0"},
       }) {
    const RecordTree tree = Read(c.type, FromHex(c.hex));
    ASSERT_FALSE(tree.ok()) << c.hex;
    EXPECT_EQ(tree.fault->Text(), c.text) << c.type << " " << c.hex;
  }
}

TEST(RecordTree, KeepsWhatWasReadBeforeTheFault) {
  const std::string bytes = FromHex("08 01 12 05 0d 00 00 80 3f 12 05 0d 00");
  const RecordTree tree = Read("FaceRoiType", bytes);
  EXPECT_EQ(ToHex(Serialize(DecodeRecord(*tree.type, tree.bytes).record)),
            "08 01 12 05 0d 00 00 80 3f 12 00");
}

struct FlagCase {
  const char* hex;
  const char* flags;
};

// The flags of the last field.
std::string FlagsOf(const std::string& type, const char* hex) {
  const std::string bytes = FromHex(hex);
  const RecordTree tree = Read(type, bytes);
  std::string text;
  if (tree.nodes.empty()) return text;
  for (const std::string& name : tree.nodes.back().flags.Names()) {
    text += (text.empty() ? "" : ", ") + name;
  }
  return text;
}

TEST(RecordTree, FlagsWhatTheLibraryWritesDifferently) {
  for (const FlagCase& c :
       std::vector<FlagCase>{{"38 05", ""},
                             {"b8 00 05", "overlong tag"},
                             {"38 85 00", "overlong value"},
                             {"38 85 80 80 80 10", "varint out of range"},
                             {"38 05 38 06", "duplicate field"},
                             {"38 05 0d 00 00 80 3f", "out of order"},
                             {"0d 00 00 00 80", "-0.0, default value written"},
                             {"0d 01 00 c0 7f", "NaN"},
                             {"78 07", "unknown field"},
                             {"78 07 38 05", "out of order"},
                             {"0a 80 00", "unknown field, overlong length"}}) {
    EXPECT_EQ(FlagsOf("RegionDimension", c.hex), c.flags) << c.hex;
  }
  EXPECT_EQ(FlagsOf("ZAfManualFocusConfig", "08 63"), "undeclared enum number");
}

TEST(RecordTree, ReadsAPackedRunAfterAnUnpackedElementAsTheClassDoes) {
  EXPECT_EQ(FlagsOf("ZAfFrameInputSmartRoi", "20 01 22 02"),
            "packed run read as an element");
  const std::string bytes = FromHex("20 01 22 02 05 06");
  const RecordTree tree = Read("ZAfFrameInputSmartRoi", bytes);
  EXPECT_FALSE(tree.ok());
  EXPECT_EQ(ToHex(Serialize(DecodeRecord(*tree.type, tree.bytes).record)),
            "22 02 01 02");
}

TEST(RecordTree, NestingEndsAt100Levels) {
  const std::string groups(101, '\x7b');
  const RecordTree tree = Read("RegionDimension", groups);
  ASSERT_FALSE(tree.ok());
  EXPECT_EQ(tree.fault->what, "nested deeper than 100 levels");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
