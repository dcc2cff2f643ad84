#include "internal/parse_entry_points.h"

#include <cstdint>
#include <functional>

#include "internal/varint.h"

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::MessageLite;
using google::protobuf::internal::ParseContext;
using google::protobuf::io::CodedInputStream;

const uint8_t* ToBytes(const void* p) { return static_cast<const uint8_t*>(p); }

// Whether the `n` bytes from `p` to the context's limit lie in one piece and
// are real. The context keeps 16 bytes behind each block readable, so a limit
// in these is as good as one in the block; any other answer proves nothing,
// above all in a short stream with a longer limit.
bool IsOnePiece(ParseContext* context, const char* p, int n) {
  constexpr int kSlop = ParseContext::kSlopBytes;
  if (n > 0 && context->DataAvailable(p + n - 1)) return true;
  return n > kSlop && context->DataAvailable(p + n - kSlop - 1);
}

// How many bytes the context's current block holds from `p` on, found by
// halving, since the context tells only whether it goes on at a position.
size_t BytesInChunk(ParseContext* context, const char* p) {
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

// How far `p` lies behind the end of the context's current block, in the bytes
// that it keeps readable there.
int Overrun(ParseContext* context, const char* p) {
  int overrun = 0;
  while (!context->DataAvailable(p - overrun - 1)) ++overrun;
  return overrun;
}

// The context lays the seams between short blocks in a buffer of its own.
bool IsInPatchBuffer(const ParseContext* context, const char* p) {
  const auto* const begin = reinterpret_cast<const char*>(context);
  return std::less_equal<>()(begin, p) &&
         std::less<>()(p, begin + sizeof(*context));
}

// Notes where the block of the stream ends that is `overrun` bytes before the
// end of what was gathered: always as far behind the context's block as that
// keeps bytes readable. A seam between two long blocks brings no end of its
// own; whether it was one shows only when the context leaves it.
void AddChunkEnd(bool leaves_patch_buffer, int overrun,
                 FlattenedInput* flattened) {
  if (leaves_patch_buffer) flattened->RemoveLastChunkEnd();
  flattened->AddChunkEnd(flattened->bytes()->size() -
                         static_cast<size_t>(overrun) +
                         ParseContext::kSlopBytes);
}

// Takes all bytes up to the context's limit or its stream's end, and tells the
// context which of the two it was. Returns the position there.
//
// ParseContext::Done can't be used to go from block to block: it is made for
// positions between fields, and takes a byte 00 anywhere else for the end.
const char* Flatten(const char* p, ParseContext* context,
                    FlattenedInput* flattened) {
  bool was_in_patch_buffer = false;
  while (true) {
    const bool is_in_patch_buffer = IsInPatchBuffer(context, p);
    const size_t size = BytesInChunk(context, p);
    flattened->bytes()->append(p, size);
    p += size;
    const int left = context->BytesUntilLimit(p);
    if (left == 0) return p;
    const int overrun = Overrun(context, p);
    AddChunkEnd(was_in_patch_buffer && !is_in_patch_buffer, overrun, flattened);
    was_in_patch_buffer = is_in_patch_buffer;
    if (context->IsExceedingLimit(p + 1)) break;  // There is no next block.
    const int readable = ParseContext::kSlopBytes - overrun;
    if (left <= readable) {
      flattened->bytes()->append(p, static_cast<size_t>(left));
      return p + left;
    }
    // One byte more than is readable takes the context to its next block.
    p = context->AppendString(p, readable + 1, flattened->bytes());
    if (context->IsExceedingLimit(p)) {
      flattened->bytes()->pop_back();
      --p;
      break;
    }
  }
  flattened->is_open_ended = true;
  context->SetEndOfStream();
  return p;
}

const char* ParseFlattened(MessageLite* message, FlatParser parser,
                           const char* p, ParseContext* context) {
  FlattenedInput flattened;
  p = Flatten(p, context, &flattened);
  ParseState state(context->depth());
  state.flattened = &flattened;
  if (parser(message, flattened.begin(), flattened.end(), &state) == nullptr) {
    return nullptr;
  }
  if (state.ended_at_invalid_tag) context->SetLastTag(0);
  return p;
}

// How many bytes are left up to a limit of `input`, or -1 if it has none. Where
// it also has a total limit before that, the bytes are gathered, and end there.
int BytesUntilLimit(CodedInputStream* input) {
  const int limit = input->BytesUntilLimit();
  return limit < 0 ? input->BytesUntilTotalBytesLimit() : limit;
}

// Skips to where the parse ended and lets the stream read a tag there: the end
// of the input, or the tag that ended the parse. So its state is the one that
// its reader expects.
bool FinishStream(CodedInputStream* input, int consumed) {
  if (!input->Skip(consumed)) return false;
  input->ReadTag();
  return true;
}

bool MergeFlattened(MessageLite* message, FlatParser parser,
                    CodedInputStream* input) {
  FlattenedInput flattened;
  flattened.is_open_ended = BytesUntilLimit(input) < 0;
  const void* chunk;
  int size;
  while (input->GetDirectBufferPointer(&chunk, &size)) {
    flattened.bytes()->append(static_cast<const char*>(chunk),
                              static_cast<size_t>(size));
    flattened.AddChunkEnd(flattened.bytes()->size());
    if (!input->Skip(size)) return false;
  }
  ParseState state(input->RecursionBudget());
  state.flattened = &flattened;
  if (parser(message, flattened.begin(), flattened.end(), &state) == nullptr) {
    return false;
  }
  // At the stream's end a tag reads as the legitimate end of a message, which
  // this was not.
  if (state.ended_at_invalid_tag) return true;
  input->ReadTag();
  return true;
}

}  // namespace

const char* ParseFromContext(MessageLite* message, FlatParser parser,
                             const char* p, ParseContext* context) {
  const int size = context->BytesUntilLimit(p);
  if (!IsOnePiece(context, p, size)) {
    return ParseFlattened(message, parser, p, context);
  }
  ParseState state(context->depth());
  const uint8_t* const end =
      parser(message, ToBytes(p), ToBytes(p + size), &state);
  if (end == nullptr) return nullptr;
  if (state.ended_at_invalid_tag) {
    context->SetLastTag(0);
    const Varint tag = ReadVarint(end, ToBytes(p + size));
    return tag.next == nullptr ? p + size : p + (tag.next - ToBytes(p));
  }
  p += size;
  context->Done(&p);
  return p;
}

bool MergeFromCodedStream(MessageLite* message, FlatParser parser,
                          CodedInputStream* input) {
  const void* chunk;
  int size;
  if (!input->GetDirectBufferPointer(&chunk, &size)) {
    input->ReadTag();
    return true;
  }
  if (size != BytesUntilLimit(input)) {
    return MergeFlattened(message, parser, input);
  }
  ParseState state(input->RecursionBudget());
  const uint8_t* const begin = ToBytes(chunk);
  const uint8_t* const end = parser(message, begin, begin + size, &state);
  if (end == nullptr) return false;
  return FinishStream(input, static_cast<int>(end - begin));
}

}  // namespace internal
}  // namespace vantiro
