// How a merge leaves the stream that it is given, beyond what is expected of
// every input in support/entry_points.cc.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include "all_types.h"
#include "tests/conformance/model/checked_message.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayInputStream;
using z3a_debug_data::z3abase::FrameInformation;
using z3a_debug_data::z3abase::RegionDimension;

std::string Hex(const MessageLite& message) {
  return ToHex(message.SerializeAsString());
}

TEST(Streams, GiveMessagesInARowUpToALimitEach) {
  const std::string bytes = FromHex("38 05 78 07  22 02 38 06  50 01");
  for (const int chunk_size : {1, 3, 64}) {
    for (const bool by_class : {false, true}) {
      ArrayInputStream chunks(bytes.data(), static_cast<int>(bytes.size()),
                              chunk_size);
      CodedInputStream input(&chunks);
      RegionDimension first;
      FrameInformation second;
      const auto merge = [&](auto* message, int size) {
        MessageLite* const base = message;
        const auto outer = input.PushLimit(size);
        EXPECT_TRUE(by_class ? message->MergePartialFromCodedStream(&input)
                             : base->MergePartialFromCodedStream(&input));
        EXPECT_TRUE(input.ConsumedEntireMessage());
        input.PopLimit(outer);
      };
      merge(&first, 4);
      merge(&second, 4);
      merge(&second, 0);
      EXPECT_EQ(Hex(first), "38 05 78 07");
      EXPECT_EQ(Hex(second), "22 02 38 06");
      EXPECT_EQ(input.ReadTag(), 0x50u);
    }
  }
}

TEST(Streams, OfOnePieceGoOnBehindATagOfValue0) {
  for (const char* const hex : {"38 05 00 10 01", "38 05 80 00 10 01"}) {
    const std::string bytes = FromHex(hex);
    CodedInputStream input(reinterpret_cast<const uint8_t*>(bytes.data()),
                           static_cast<int>(bytes.size()));
    RegionDimension message;
    EXPECT_TRUE(message.MergePartialFromCodedStream(&input));
    EXPECT_EQ(input.CurrentPosition(), static_cast<int>(bytes.size()) - 2);
    EXPECT_TRUE(message.MergePartialFromCodedStream(&input));
    EXPECT_TRUE(input.ConsumedEntireMessage());
    EXPECT_EQ(Hex(message), "38 05 10 01");
  }
}

// MessageLite's operation of the same name does not honour this limit.
TEST(Streams, EndNoMessageLegitimatelyAtTheTotalLimit) {
  const google::protobuf::LogSilencer silence;
  const std::string bytes = FromHex("38 05 38 06");
  for (const int chunk_size : {1, 3, 64}) {
    ArrayInputStream chunks(bytes.data(), 4, chunk_size);
    CodedInputStream input(&chunks);
    input.SetTotalBytesLimit(2);
    RegionDimension message;
    EXPECT_TRUE(message.MergePartialFromCodedStream(&input));
    EXPECT_FALSE(input.ConsumedEntireMessage());
    EXPECT_EQ(Hex(message), "38 05");
  }
}

TEST(RecursionLimit, IsAHundredByDefault) {
  const Type& type = FindType("z3a_debug_data.z3abase.RegionDimension");
  for (const size_t depth : {100u, 101u}) {
    const std::string groups =
        std::string(depth, '\x7b') + std::string(depth, '\x7c');
    for (const Input& input : InputsOf(groups)) {
      std::string written;
      EXPECT_EQ(ReadByAllEntryPoints(type, input, &written).complete,
                depth == 100);
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
