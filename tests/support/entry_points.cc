#include "tests/support/entry_points.h"

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayInputStream;
using google::protobuf::io::ArrayOutputStream;
using google::protobuf::io::StringOutputStream;

// What stands behind a limit: fields that most messages would read.
constexpr char kBehind[] = "\x08\x01\x12\x7f\x05\xff\xff";

int Size(const std::string& bytes) { return static_cast<int>(bytes.size()); }

// The bytes, and those behind the limit if there is one, in memory of their
// own: a sanitizer sees any read past the end.
std::vector<char> Memory(const Input& input, bool has_limit) {
  const std::string all = input.bytes + (has_limit ? kBehind : "");
  return {all.begin(), all.end()};
}

template <typename Operation>
Verdict MergeBy(const Operation& merge, const Input& input, bool has_limit) {
  const std::vector<char> memory = Memory(input, has_limit);
  const int size = static_cast<int>(memory.size());
  ArrayInputStream chunks(memory.data(), size, input.chunk_size);
  CodedInputStream flat(reinterpret_cast<const uint8_t*>(memory.data()), size);
  CodedInputStream chunked(&chunks);
  CodedInputStream* const stream = input.chunk_size == 0 ? &flat : &chunked;
  stream->SetRecursionLimit(input.recursion_limit);
  const auto outer = has_limit ? stream->PushLimit(Size(input.bytes)) : 0;
  const bool merged = merge(stream);
  const bool complete = merged && stream->ConsumedEntireMessage();
  if (merged) {
    EXPECT_EQ(stream->RecursionBudget(), input.recursion_limit);
  }
  if (complete) {
    EXPECT_EQ(stream->CurrentPosition(), Size(input.bytes));
  }
  if (complete && has_limit) {
    EXPECT_EQ(stream->BytesUntilLimit(), 0);
    stream->PopLimit(outer);
    EXPECT_EQ(stream->ReadTag(), static_cast<uint32_t>(kBehind[0]));
  }
  return {merged, complete};
}

Verdict MergeByMessageLite(const Input& input, bool has_limit,
                           MessageLite* message) {
  const auto merge = [message](CodedInputStream* stream) {
    return message->MergePartialFromCodedStream(stream);
  };
  return MergeBy(merge, input, has_limit);
}

Verdict Parsed(bool ok) { return {ok, ok}; }

// Which inputs an entry point takes.
enum Takes { kOnePiece, kChunks, kChunksAndRecursionLimit, kChunksWithLimit };

const std::pair<Takes, EntryPoint> kEntryPoints[] = {
    {kOnePiece,
     {"ParseFromString", true,
      [](const Type&, const Input& input, MessageLite* message) {
        return Parsed(message->ParseFromString(input.bytes));
      }}},
    {kOnePiece,
     {"ParseFromArray", true,
      [](const Type&, const Input& input, MessageLite* message) {
        return Parsed(message->ParseFromArray(Memory(input, false).data(),
                                              Size(input.bytes)));
      }}},
    {kChunks,
     {"ParseFromZeroCopyStream", true,
      [](const Type&, const Input& input, MessageLite* message) {
        const std::vector<char> memory = Memory(input, false);
        ArrayInputStream chunks(memory.data(), Size(input.bytes),
                                input.chunk_size);
        return Parsed(message->ParseFromZeroCopyStream(&chunks));
      }}},
    {kChunksAndRecursionLimit,
     {"merge by MessageLite", false,
      [](const Type&, const Input& input, MessageLite* message) {
        return MergeByMessageLite(input, false, message);
      }}},
    // The runtime hides the limit from the parser.
    {kChunksAndRecursionLimit,
     {"merge by MessageLite up to a limit", false,
      [](const Type&, const Input& input, MessageLite* message) {
        return MergeByMessageLite(input, true, message);
      }}},
    {kChunksWithLimit,
     {"ParseFromBoundedZeroCopyStream", true,
      [](const Type&, const Input& input, MessageLite* message) {
        const std::vector<char> memory = Memory(input, true);
        ArrayInputStream chunks(memory.data(), static_cast<int>(memory.size()),
                                input.chunk_size);
        return Parsed(message->ParseFromBoundedZeroCopyStream(
            &chunks, Size(input.bytes)));
      }}},
};

bool IsTaken(const Input& input, Takes takes) {
  const bool has_default_limit =
      input.recursion_limit == Input().recursion_limit;
  const Takes given = input.chunk_size == 0 ? kOnePiece
                      : input.has_limit     ? kChunksWithLimit
                                            : kChunks;
  if (takes == kChunksAndRecursionLimit) return given == kChunks;
  return takes == given && has_default_limit;
}

std::string SerializeToChunks(const Type& type, const MessageLite& message,
                              int chunk_size) {
  std::vector<char> space(message.ByteSizeLong());
  ArrayOutputStream chunks(space.data(), static_cast<int>(space.size()),
                           chunk_size);
  {
    CodedOutputStream output(&chunks);
    type.serialize_with_cached_sizes(message, &output);
    EXPECT_FALSE(output.HadError());
  }
  EXPECT_EQ(chunks.ByteCount(), static_cast<int64_t>(space.size()));
  return {space.begin(), space.end()};
}

}  // namespace

std::vector<Input> InputsOf(const std::string& bytes) {
  std::vector<Input> inputs = {{bytes}};
  for (const int chunk_size : {1, 2, 3, 7, 16, 17, 40, 4096}) {
    inputs.push_back({bytes, chunk_size, false});
    inputs.push_back({bytes, chunk_size, true});
  }
  return inputs;
}

std::string ToString(const Input& input) {
  return ToHex(input.bytes) + ", chunks of " +
         std::to_string(input.chunk_size) + (input.has_limit ? ", limit" : "") +
         ", recursion limit " + std::to_string(input.recursion_limit);
}

Verdict Merge(const Type& type, const Input& input, MessageLite* message) {
  const auto merge = [&type, message](CodedInputStream* stream) {
    return type.merge_from_stream(message, stream);
  };
  return MergeBy(merge, input, input.has_limit);
}

std::vector<EntryPoint> EntryPointsFor(const Input& input) {
  std::vector<EntryPoint> result = {{"merge by the class", false, &Merge}};
  for (const auto& [takes, entry_point] : kEntryPoints) {
    if (IsTaken(input, takes)) result.push_back(entry_point);
  }
  return result;
}

std::string Serialize(const Type& type, const MessageLite& message) {
  const size_t size = message.ByteSizeLong();
  EXPECT_EQ(message.GetCachedSize(), static_cast<int>(size)) << type.name;
  std::string bytes;
  EXPECT_TRUE(message.SerializeToString(&bytes)) << type.name;
  EXPECT_EQ(bytes.size(), size) << type.name;

  std::string by_class;
  {
    StringOutputStream stream(&by_class);
    CodedOutputStream output(&stream);
    type.serialize_with_cached_sizes(message, &output);
  }
  EXPECT_TRUE(AreSame(by_class, bytes)) << type.name;

  std::string array(size, '\0');
  EXPECT_TRUE(message.SerializeToArray(array.data(), static_cast<int>(size)));
  EXPECT_TRUE(AreSame(array, bytes)) << type.name;

  for (const int chunk_size : {1, 7, 64}) {
    EXPECT_TRUE(AreSame(SerializeToChunks(type, message, chunk_size), bytes))
        << type.name << ", chunks of " << chunk_size;
  }
  return bytes;
}

}  // namespace tests
}  // namespace vantiro
