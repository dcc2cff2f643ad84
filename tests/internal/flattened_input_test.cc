// The bytes of a stream in one piece, and the ends of its chunks, for streams
// of short and long chunks: the runtime's context copies the short ones to a
// buffer of its own.

#include "internal/flattened_input.h"

#include <google/protobuf/io/zero_copy_stream.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::internal::ParseContext;
using google::protobuf::io::CodedInputStream;

// Gives `bytes` in chunks of the sizes given.
class ChunkStream : public google::protobuf::io::ZeroCopyInputStream {
 public:
  ChunkStream(const std::string& bytes, std::vector<int> sizes)
      : bytes_(bytes), sizes_(std::move(sizes)) {}

  bool Next(const void** data, int* size) override {
    if (next_ == sizes_.size()) return false;
    *data = bytes_.data() + position_;
    *size = sizes_[next_++];
    position_ += *size;
    return true;
  }
  void BackUp(int count) override {
    position_ -= count;
    sizes_[--next_] = count;
  }
  bool Skip(int /*count*/) override { return false; }
  int64_t ByteCount() const override { return position_; }

 private:
  const std::string& bytes_;
  std::vector<int> sizes_;
  size_t next_ = 0;
  int position_ = 0;
};

// Expects the first `size` of the bytes, and for each the end of its chunk.
void ExpectFlattened(const FlattenedInput& flattened, const std::string& bytes,
                     const std::vector<int>& sizes, int size) {
  ASSERT_EQ(flattened.bytes, bytes.substr(0, static_cast<size_t>(size)));
  int chunk_end = 0;
  auto chunk = sizes.begin();
  for (int i = 1; i <= size; ++i) {
    while (chunk_end < i) chunk_end += *chunk++;
    ASSERT_EQ(flattened.EndOfChunk(flattened.begin() + i) - flattened.begin(),
              std::min(chunk_end, size))
        << "after byte " << i;
  }
}

constexpr int kNoLimit = -1;

// Flattens the stream from both sources, up to a limit or to its end.
void ExpectBothFlatten(const std::string& bytes, const std::vector<int>& sizes,
                       int limit) {
  SCOPED_TRACE(testing::PrintToString(sizes) + ", limit " +
               std::to_string(limit));
  const bool has_limit = limit != kNoLimit;
  const int size = has_limit ? limit : static_cast<int>(bytes.size());
  {
    ChunkStream stream(bytes, sizes);
    const char* p;
    ParseContext context = has_limit
                               ? ParseContext(100, false, &p, &stream, limit)
                               : ParseContext(100, false, &p, &stream);
    FlattenedInput flattened;
    p = Flatten(p, &context, &flattened);
    EXPECT_EQ(context.BytesUntilLimit(p) == 0, has_limit);
    EXPECT_EQ(context.EndedAtEndOfStream(), !has_limit);
    EXPECT_EQ(flattened.has_limit, has_limit);
    EXPECT_EQ(flattened.missing, has_limit ? 0 : PTRDIFF_MAX);
    ExpectFlattened(flattened, bytes, sizes, size);
  }
  ChunkStream stream(bytes, sizes);
  CodedInputStream input(&stream);
  if (has_limit) input.PushLimit(limit);
  FlattenedInput flattened;
  Flatten(&input, &flattened);
  EXPECT_EQ(input.CurrentPosition(), size);
  EXPECT_EQ(flattened.has_limit, has_limit);
  ExpectFlattened(flattened, bytes, sizes, size);
}

void ExpectFlattensUpToEveryLimit(const std::vector<int>& sizes) {
  std::string bytes;
  for (const int size : sizes) {
    // With bytes 00, which a context takes for the end of a message elsewhere.
    for (int i = 0; i < size; ++i) {
      bytes.push_back(static_cast<char>(i % 5 == 0 ? 0 : bytes.size() % 128));
    }
  }
  for (int limit = kNoLimit; limit <= static_cast<int>(bytes.size()); ++limit) {
    ExpectBothFlatten(bytes, sizes, limit);
  }
}

TEST(Flatten, KeepsTheBytesAndTheEndsOfChunks) {
  for (const auto& sizes :
       std::vector<std::vector<int>>{{},
                                     {1},
                                     {16},
                                     {17},
                                     {1, 1, 1, 1},
                                     {16, 16, 16},
                                     {17, 17, 17},
                                     {15, 40, 16, 1, 33, 17},
                                     {40, 40, 5, 5, 40},
                                     {40, 0, 3, 0, 0, 40, 0}}) {
    ExpectFlattensUpToEveryLimit(sizes);
  }
}

TEST(Flatten, KeepsThemForChunksOfAnySize) {
  std::mt19937 random(1);
  for (int run = 0; run < 100; ++run) {
    std::vector<int> sizes(random() % 6);
    for (int& size : sizes) size = static_cast<int>(random() % 40);
    ExpectFlattensUpToEveryLimit(sizes);
  }
}

TEST(Flatten, TellsHowFarTheNearestLimitIsBeyondTheBytes) {
  const google::protobuf::LogSilencer silence;
  const std::string bytes = "0123456789";
  const struct {
    int limit;
    int total_limit;
    ptrdiff_t missing;
  } cases[] = {
      {kNoLimit, kNoLimit, PTRDIFF_MAX},
      {kNoLimit, 13, 3},
      {13, kNoLimit, 3},
      {13, 15, 3},
      {15, 13, 3},
      {10, 15, 0},
      {15, 7, 0},
  };
  for (const auto& c : cases) {
    ChunkStream stream(bytes, {4, 6});
    CodedInputStream input(&stream);
    if (c.limit != kNoLimit) input.PushLimit(c.limit);
    if (c.total_limit != kNoLimit) input.SetTotalBytesLimit(c.total_limit);
    FlattenedInput flattened;
    Flatten(&input, &flattened);
    EXPECT_EQ(flattened.has_limit, c.limit != kNoLimit);
    EXPECT_EQ(flattened.missing, c.missing)
        << "limit " << c.limit << ", total " << c.total_limit;
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
