// The capacities of repeated fields of scalars. Only how far a parse looks
// ahead after an unpacked element shows them in what is read.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayInputStream;

// A packed run of `count` floats.
std::string Floats(int count) {
  return FromHex("aa 01") + static_cast<char>(4 * count) +
         std::string(static_cast<size_t>(4 * count), '\x01');
}

TEST(Capacity, OfAPackedRunThatFailsIsThatOfItsElementsBeforeIt) {
  // A varint of eleven bytes is after one element and before four.
  const std::string run =
      FromHex("b2 01 10 05 ff ff ff ff ff ff ff ff ff ff 01 01 02 03 04");
  EveryKind message;
  EXPECT_FALSE(MergeBytes(run, &message));
  EXPECT_EQ(message.uint32_list_size(), 1);
  EXPECT_EQ(message.uint32_list().Capacity(), 4);
}

// A limit allows for all elements of a run, a total bytes limit does not.
TEST(Capacity, OfPackedFloatsDoublesWithoutALimit) {
  const std::string bytes = Floats(5) + Floats(6);
  const auto capacity = [&bytes](int chunk_size, auto set_limit) {
    ArrayInputStream chunks(bytes.data(), static_cast<int>(bytes.size()),
                            chunk_size);
    CodedInputStream input(&chunks);
    set_limit(&input);
    EveryKind message;
    EXPECT_TRUE(message.MergePartialFromCodedStream(&input));
    EXPECT_EQ(message.float_list_size(), 11);
    return message.float_list().Capacity();
  };
  const int size = static_cast<int>(bytes.size());
  for (const int chunk_size : {1, 64}) {
    EXPECT_EQ(capacity(chunk_size, [](auto*) {}), 16);
    EXPECT_EQ(capacity(chunk_size,
                       [=](auto* input) { input->SetTotalBytesLimit(size); }),
              16);
    EXPECT_EQ(
        capacity(chunk_size, [=](auto* input) { input->PushLimit(size); }), 11);
  }
  EveryKind message;
  EXPECT_TRUE(message.ParseFromString(bytes));
  EXPECT_EQ(message.float_list().Capacity(), 11);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
