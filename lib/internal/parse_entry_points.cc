#include "internal/parse_entry_points.h"

#include <cstdint>

#include "internal/flattened_input.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::MessageLite;
using google::protobuf::internal::ParseContext;
using google::protobuf::io::CodedInputStream;

const uint8_t* ToBytes(const void* p) { return static_cast<const uint8_t*>(p); }

// Whether the `n` bytes from `p` to the context's limit are there and lie in
// one piece. The context keeps kSlopBytes readable after its buffer, so the
// limit may also lie in these. Any other answer of the context proves nothing,
// above all for a short stream with a longer limit.
bool IsOnePiece(ParseContext* context, const char* p, int n) {
  constexpr int kSlopBytes = ParseContext::kSlopBytes;
  if (n > 0 && context->DataAvailable(p + n - 1)) return true;
  return n > kSlopBytes && context->DataAvailable(p + n - kSlopBytes - 1);
}

const char* ParseFlattened(MessageLite* message, FlatParser parser,
                           const char* p, ParseContext* context) {
  FlattenedInput flattened;
  p = Flatten(p, context, &flattened);
  ParseState state(context->depth(), &flattened);
  if (parser(message, flattened.begin(), flattened.end(), &state) == nullptr) {
    if (state.invalid_tag == nullptr) return nullptr;
    context->SetLastTag(0);
  }
  return p;
}

bool MergeFlattened(MessageLite* message, FlatParser parser,
                    CodedInputStream* input) {
  FlattenedInput flattened;
  Flatten(input, &flattened);
  ParseState state(input->RecursionBudget(), &flattened);
  if (parser(message, flattened.begin(), flattened.end(), &state) == nullptr) {
    // ReadTag at the end of the stream would make this a legitimate end.
    return state.invalid_tag != nullptr;
  }
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
  const uint8_t* const end = ToBytes(p + size);
  if (parser(message, ToBytes(p), end, &state) == nullptr) {
    if (state.invalid_tag == nullptr) return nullptr;
    context->SetLastTag(0);
    const Varint tag = ReadVarint(state.invalid_tag, end);
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
  if (size != input->BytesUntilLimit()) {
    return MergeFlattened(message, parser, input);
  }
  ParseState state(input->RecursionBudget());
  const uint8_t* const begin = ToBytes(chunk);
  const uint8_t* end = parser(message, begin, begin + size, &state);
  if (end == nullptr) end = state.invalid_tag;
  if (end == nullptr) return false;
  // The stream then reads a tag where the parse ended, as a parser on the
  // stream would have: at the end of the input, or the tag that ended the
  // parse.
  input->Skip(static_cast<int>(end - begin));
  input->ReadTag();
  return true;
}

}  // namespace internal
}  // namespace vantiro
