// What a reader takes from the stream that it is given, and how it leaves it.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <memory>

#include "all_units.h"
#include "tests/conformance/wire/log.h"
#include "tests/conformance/wire/reading.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayInputStream;
using z3a_debug_data::z3abase::FaceRoiType;
using z3a_debug_data::z3abase::FrameInformation;
using z3a_debug_data::z3abase::RegionDimension;
using z3a_debug_data::zaf::ZAfStateSnapshot;

// A stream over bytes in hexadecimal: in one piece, or in blocks.
struct Stream {
  Stream(const std::string& hex, int block)
      : bytes(FromHex(hex)),
        size(static_cast<int>(bytes.size())),
        blocks(bytes.data(), size, block),
        flat(reinterpret_cast<const uint8_t*>(bytes.data()), size),
        in_blocks(&blocks),
        input(block == 0 ? &flat : &in_blocks) {}

  const std::string bytes;
  const int size;
  ArrayInputStream blocks;
  CodedInputStream flat;
  CodedInputStream in_blocks;
  CodedInputStream* const input;
};

// Through blocks of all sorts, by the class's operation and by that which a
// call through a MessageLite& takes.
class WireStream : public testing::TestWithParam<std::tuple<int, bool>> {
 protected:
  int block() const { return std::get<0>(GetParam()); }

  template <typename T>
  bool Merge(CodedInputStream* input, T* message) const {
    MessageLite* const base = message;
    return std::get<1>(GetParam()) ? message->MergePartialFromCodedStream(input)
                                   : base->MergePartialFromCodedStream(input);
  }

  // Merges with so many levels, and expects bytes as the output.
  template <typename T>
  void ExpectDepth(const std::string& input, int levels, bool reads,
                   const std::string& output) const {
    SCOPED_TRACE(input + " with " + std::to_string(levels) + " levels");
    Stream stream(input, block());
    stream.input->SetRecursionLimit(levels);
    T message;
    EXPECT_EQ(Merge(stream.input, &message), reads);
    EXPECT_EQ(Written(message), output);
    if (reads) {
      EXPECT_EQ(stream.input->RecursionBudget(), levels);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Blocks, WireStream,
                         testing::Combine(testing::Values(0, 1, 3, 64),
                                          testing::Bool()));

TEST_P(WireStream, GivesRecordsInARowUpToTheCallersLimits) {
  Stream stream("38 05 78 07  22 02 38 06  50 01", block());
  CodedInputStream* const input = stream.input;
  RegionDimension first;
  FrameInformation second;
  const auto outer = input->PushLimit(4);
  EXPECT_TRUE(Merge(input, &first));
  EXPECT_TRUE(input->ConsumedEntireMessage());
  EXPECT_EQ(input->BytesUntilLimit(), 0);
  EXPECT_EQ(input->CurrentPosition(), 4);
  input->PopLimit(outer);
  EXPECT_EQ(Written(first), "38 05 78 07");

  input->PushLimit(4);
  EXPECT_TRUE(Merge(input, &second));
  EXPECT_TRUE(input->ConsumedEntireMessage());
  EXPECT_EQ(input->CurrentPosition(), 8);
  input->PopLimit(outer);
  EXPECT_EQ(Written(second), "22 02 38 06");

  input->PushLimit(0);
  EXPECT_TRUE(Merge(input, &second));
  EXPECT_TRUE(input->ConsumedEntireMessage());
  input->PopLimit(outer);
  EXPECT_EQ(input->ReadTag(), 0x50u);
}

TEST_P(WireStream, EndsALegitimateMessageAtItsEnd) {
  for (const char* record : {"", "38 05", "0d 00 00 80 3f 38 05 78 07"}) {
    Stream stream(record, block());
    RegionDimension message;
    EXPECT_TRUE(Merge(stream.input, &message));
    EXPECT_TRUE(stream.input->ConsumedEntireMessage());
    EXPECT_EQ(stream.input->CurrentPosition(), stream.size);
    EXPECT_EQ(Written(message), record);
  }
}

TEST_P(WireStream, DoesNotEndALegitimateMessageAtATagOfValue0) {
  for (const char* record : {"38 05 00 38 06", "38 05 00", "38 05 80 00 38"}) {
    for (const bool has_limit : {false, true}) {
      SCOPED_TRACE(record);
      Stream stream(record, block());
      if (has_limit) stream.input->PushLimit(stream.size);
      RegionDimension message;
      EXPECT_TRUE(Merge(stream.input, &message));
      EXPECT_FALSE(stream.input->ConsumedEntireMessage());
      EXPECT_EQ(Written(message), "38 05");
    }
  }
}

TEST_P(WireStream, GivesALevelToEverySubMessageAndGroup) {
  const std::string chain = "22 0b 9a 01 08 0a 06 12 04 0a 02 28 01";
  ExpectDepth<ZAfStateSnapshot>(chain, 5, true, chain);
  ExpectDepth<ZAfStateSnapshot>(chain, 4, false,
                                "22 09 9a 01 06 0a 04 12 02 0a 00");
  ExpectDepth<ZAfStateSnapshot>(chain, 0, false, "22 00");
  ExpectDepth<RegionDimension>("38 05", 0, true, "38 05");
  // One after the other they take the same level.
  ExpectDepth<FaceRoiType>("12 00 12 02 38 03", 1, true, "12 00 12 02 38 03");
  ExpectDepth<RegionDimension>("7b 7b 7c 7c 7b 7c", 2, true,
                               "7b 7b 7c 7c 7b 7c");
  ExpectDepth<RegionDimension>("7b 7b 7c 7c", 1, false, "7b 7b");
  ExpectDepth<FrameInformation>("22 02 7b 7c", 2, true, "22 02 7b 7c");
  ExpectDepth<FrameInformation>("22 02 7b 7c", 1, false, "22 01 7b");
}

TEST(WireStreamInOnePiece, GoesOnBehindATagOfValue0) {
  for (const char* record : {"38 05 00 10 01", "38 05 80 00 10 01"}) {
    Stream stream(record, 0);
    RegionDimension message;
    EXPECT_TRUE(message.MergePartialFromCodedStream(stream.input));
    EXPECT_EQ(stream.input->CurrentPosition(), stream.size - 2);
    EXPECT_TRUE(message.MergePartialFromCodedStream(stream.input));
    EXPECT_TRUE(stream.input->ConsumedEntireMessage());
    EXPECT_EQ(Written(message), "38 05 10 01");
  }
}

// The runtime's operation of the same name does not honour this.
TEST(WireStreamByTheClass, DoesNotEndALegitimateMessageAtTheTotalLimit) {
  const Log log;
  for (const int block : {0, 1, 3, 64}) {
    SCOPED_TRACE(block);
    Stream stream("38 05 38 06", block);
    stream.input->SetTotalBytesLimit(2);
    RegionDimension message;
    EXPECT_TRUE(message.MergePartialFromCodedStream(stream.input));
    EXPECT_FALSE(stream.input->ConsumedEntireMessage());
    EXPECT_EQ(Written(message), "38 05");
  }
}

TEST(WireStreamByDefault, HasAHundredLevels) {
  std::string begins;
  std::string ends;
  for (int i = 0; i < 100; ++i) {
    begins += "7b ";
    ends += "7c ";
  }
  const std::string type = "z3a_debug_data.z3abase.RegionDimension";
  ExpectReading({type, begins + ends, "reads", begins + ends, ""}, WaysFor(""));
  ExpectReading({type, begins + "7b 7c" + ends, "fails", begins + "7b", ""},
                WaysFor(""));
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
