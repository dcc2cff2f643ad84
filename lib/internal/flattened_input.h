// The bytes of a stream in one piece, for the parsers, which read flat memory.

#ifndef VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_
#define VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/parse_context.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantiro {
namespace internal {

struct FlattenedInput {
  const uint8_t* begin() const {
    return reinterpret_cast<const uint8_t*>(bytes.data());
  }
  const uint8_t* end() const { return begin() + bytes.size(); }

  // The end of the chunk that the byte before `p` lies in.
  const uint8_t* EndOfChunk(const uint8_t* p) const;

  std::string bytes;
  // The offsets at which the chunks of the stream end, in ascending order. The
  // last one may lie beyond the end of the bytes.
  std::vector<size_t> chunk_ends;
  // Whether the stream has a limit, other than a total bytes limit.
  bool has_limit = true;
  // By how many bytes the nearest limit, or total bytes limit, is beyond the
  // end of the bytes. The largest number if there is none.
  ptrdiff_t missing = 0;
};

// Takes what `input` gives up to its limit or its end. Memory grows with the
// bytes that arrive.
void Flatten(google::protobuf::io::CodedInputStream* input,
             FlattenedInput* flattened);

// The same for what `context` gives from `p` on. Returns the position at the
// end, and tells the context if that is the end of its stream.
const char* Flatten(const char* p,
                    google::protobuf::internal::ParseContext* context,
                    FlattenedInput* flattened);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_
