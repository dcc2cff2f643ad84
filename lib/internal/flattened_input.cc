#include "internal/flattened_input.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::internal::ParseContext;
using google::protobuf::io::CodedInputStream;

constexpr ptrdiff_t kNoLimit = std::numeric_limits<ptrdiff_t>::max();

// How many bytes the context's buffer holds from `p` on. The context only tells
// whether its buffer goes on at a position, so this is a search by doubling and
// halving.
size_t BytesInBuffer(ParseContext* context, const char* p) {
  size_t available = 0;
  size_t step = 1;
  while (context->DataAvailable(p + available + step - 1)) {
    available += step;
    step *= 2;
  }
  for (; step > 0; step /= 2) {
    if (context->DataAvailable(p + available + step - 1)) available += step;
  }
  return available;
}

// How far `p` lies beyond the end of the context's buffer, among the kSlopBytes
// that are readable there.
int Overrun(ParseContext* context, const char* p) {
  int overrun = 0;
  while (!context->DataAvailable(p - overrun - 1)) ++overrun;
  return overrun;
}

// Whether the context's buffer is its patch buffer, which joins the end of one
// chunk to the begin of the next. It is a member of the context.
bool IsInPatchBuffer(const ParseContext* context, const char* p) {
  const auto* const begin = reinterpret_cast<const char*>(context);
  return std::less_equal<>()(begin, p) &&
         std::less<>()(p, begin + sizeof(*context));
}

// For what a CodedInputStream gives as the distance to a limit, which is
// negative if it has none.
ptrdiff_t MissingBytes(int until_limit) {
  return until_limit < 0 ? kNoLimit : until_limit;
}

}  // namespace

const uint8_t* FlattenedInput::EndOfChunk(const uint8_t* p) const {
  const auto offset = static_cast<size_t>(p - begin());
  const auto found =
      std::lower_bound(chunk_ends.begin(), chunk_ends.end(), offset);
  if (found == chunk_ends.end() || *found > bytes.size()) return end();
  return begin() + *found;
}

void Flatten(CodedInputStream* input, FlattenedInput* flattened) {
  const void* chunk;
  int size;
  while (input->GetDirectBufferPointer(&chunk, &size)) {
    flattened->bytes.append(static_cast<const char*>(chunk),
                            static_cast<size_t>(size));
    flattened->chunk_ends.push_back(flattened->bytes.size());
    input->Skip(size);
  }
  const int limit = input->BytesUntilLimit();
  flattened->has_limit = limit >= 0;
  flattened->missing = std::min(
      MissingBytes(limit), MissingBytes(input->BytesUntilTotalBytesLimit()));
}

// ParseContext::Done cannot be used to get to the next buffer: it expects to be
// called between fields, and takes a byte 00 anywhere else for the end.
const char* Flatten(const char* p, ParseContext* context,
                    FlattenedInput* flattened) {
  constexpr int kSlopBytes = ParseContext::kSlopBytes;
  std::string* const bytes = &flattened->bytes;
  bool was_in_patch_buffer = false;
  while (true) {
    // A patch buffer before a long chunk contains no end of a chunk. Only now,
    // when the context has left it, is this known.
    const bool is_in_patch_buffer = IsInPatchBuffer(context, p);
    if (was_in_patch_buffer && !is_in_patch_buffer) {
      flattened->chunk_ends.pop_back();
    }
    was_in_patch_buffer = is_in_patch_buffer;

    const size_t size = BytesInBuffer(context, p);
    bytes->append(p, size);
    p += size;
    const int left = context->BytesUntilLimit(p);
    if (left == 0) return p;

    // The chunk ends kSlopBytes after the buffer.
    const int readable = kSlopBytes - Overrun(context, p);
    flattened->chunk_ends.push_back(bytes->size() +
                                    static_cast<size_t>(readable));
    if (context->IsExceedingLimit(p + 1)) break;  // There is no next buffer.
    if (left <= readable) {
      bytes->append(p, static_cast<size_t>(left));
      return p + left;
    }
    // One byte more than is readable takes the context to its next buffer.
    p = context->AppendString(p, readable + 1, bytes);
    if (context->IsExceedingLimit(p)) {
      bytes->pop_back();
      --p;
      break;
    }
  }
  flattened->has_limit = false;
  flattened->missing = kNoLimit;
  context->SetEndOfStream();
  return p;
}

}  // namespace internal
}  // namespace vantiro
