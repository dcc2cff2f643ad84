#include "tests/support/roads.h"

#include <google/protobuf/io/zero_copy_stream_impl.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayInputStream;
using google::protobuf::io::ArrayOutputStream;
using google::protobuf::io::IstreamInputStream;
using google::protobuf::io::StringOutputStream;

int Size(const std::string& bytes) { return static_cast<int>(bytes.size()); }

// What stands behind the bytes if they have a limit.
std::string Behind() { return FromHex("08 01 12 7f 05 ff ff"); }

// In memory of its own with nothing behind it, so that a sanitizer sees any
// read past the end.
using Exact = std::vector<char>;

ReadRoad FlatMerge() {
  return {"merge by the class", false,
          [](const Type& type, const std::string& bytes, MessageLite* message) {
            const Exact exact(bytes.begin(), bytes.end());
            CodedInputStream input(
                reinterpret_cast<const uint8_t*>(exact.data()), Size(bytes));
            return type.merge_from_stream(message, &input);
          }};
}

std::vector<ReadRoad> FlatRoads() {
  return {FlatMerge(),
          {"parse from string", true,
           [](const Type&, const std::string& bytes, MessageLite* message) {
             return message->ParseFromString(bytes);
           }},
          {"parse from array", true,
           [](const Type&, const std::string& bytes, MessageLite* message) {
             const Exact exact(bytes.begin(), bytes.end());
             return message->ParseFromArray(exact.data(), Size(bytes));
           }}};
}

// A stream of blocks, by the class's operation and by the runtime's of the same
// name, which is what a call through a MessageLite& is.
ReadRoad StreamMerge(bool by_class, Given given) {
  return {
      std::string(by_class ? "merge by the class" : "merge by the base") +
          (given.has_limit ? " up to a limit" : ""),
      false,
      [=](const Type& type, const std::string& bytes, MessageLite* message) {
        const std::string all = given.has_limit ? bytes + Behind() : bytes;
        ArrayInputStream blocks(all.data(), Size(all), given.block);
        CodedInputStream input(&blocks);
        if (given.has_limit) input.PushLimit(Size(bytes));
        return by_class ? type.merge_from_stream(message, &input)
                        : message->MergePartialFromCodedStream(&input);
      }};
}

ReadRoad StreamParse(Given given) {
  return {"parse from zero-copy stream", true,
          [=](const Type&, const std::string& bytes, MessageLite* message) {
            const std::string all = given.has_limit ? bytes + Behind() : bytes;
            ArrayInputStream blocks(all.data(), Size(all), given.block);
            return given.has_limit ? message->ParseFromBoundedZeroCopyStream(
                                         &blocks, Size(bytes))
                                   : message->ParseFromZeroCopyStream(&blocks);
          }};
}

ReadRoad IstreamParse(int block) {
  return {"parse from istream", true,
          [block](const Type&, const std::string& bytes, MessageLite* message) {
            std::istringstream stream(bytes);
            IstreamInputStream blocks(&stream, block);
            return message->ParseFromZeroCopyStream(&blocks);
          }};
}

std::string SerializeToBlocks(const Type& type, const MessageLite& message,
                              int block) {
  std::vector<char> space(message.ByteSizeLong());
  ArrayOutputStream blocks(space.data(), static_cast<int>(space.size()), block);
  {
    CodedOutputStream output(&blocks);
    type.serialize_with_cached_sizes(message, &output);
    EXPECT_FALSE(output.HadError());
  }
  EXPECT_EQ(blocks.ByteCount(), static_cast<int64_t>(space.size()));
  return {space.begin(), space.end()};
}

}  // namespace

std::vector<ReadRoad> RoadsFor(Given given) {
  if (given.block == 0) return FlatRoads();
  std::vector<ReadRoad> roads = {StreamMerge(true, given), StreamParse(given)};
  if (!given.has_limit) {
    roads.push_back(IstreamParse(given.block));
    roads.push_back(StreamMerge(false, given));
    // The runtime's operation hides a stream's limit from the parser.
    roads.push_back(StreamMerge(false, {given.block, true}));
  }
  return roads;
}

std::string Serialize(const Type& type, const MessageLite& message) {
  const size_t size = message.ByteSizeLong();
  EXPECT_EQ(message.GetCachedSize(), static_cast<int>(size)) << type.name;
  std::string by_string;
  EXPECT_TRUE(message.SerializeToString(&by_string)) << type.name;
  EXPECT_EQ(by_string.size(), size) << type.name;

  std::string by_class;
  {
    StringOutputStream stream(&by_class);
    CodedOutputStream output(&stream);
    type.serialize_with_cached_sizes(message, &output);
  }
  EXPECT_EQ(ToHex(by_class), ToHex(by_string)) << type.name;

  std::vector<char> array(size);
  EXPECT_TRUE(message.SerializeToArray(array.data(), static_cast<int>(size)));
  EXPECT_EQ(ToHex({array.begin(), array.end()}), ToHex(by_string)) << type.name;

  for (const int block : {1, 7, 64}) {
    EXPECT_EQ(ToHex(SerializeToBlocks(type, message, block)), ToHex(by_string))
        << type.name << ", blocks of " << block;
  }
  return by_string;
}

}  // namespace tests
}  // namespace vantiro
