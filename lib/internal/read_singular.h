// Reading singular fields other than varints.

#ifndef VANTIRO_LIB_INTERNAL_READ_SINGULAR_H_
#define VANTIRO_LIB_INTERNAL_READ_SINGULAR_H_

#include <google/protobuf/arenastring.h>

#include <cstdint>
#include <cstring>

#include "internal/message_access.h"
#include "internal/parse_state.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "floats are copied byte by byte: little-endian targets only");

// Reads a float: any four bytes, NaN and -0.0 included.
inline const uint8_t* ReadFloat(const uint8_t* p, const uint8_t* end,
                                float* field) {
  if (__builtin_expect(end - p < 4, false)) return nullptr;
  std::memcpy(field, p, sizeof(*field));
  return p + sizeof(*field);
}

// Reads a bytes field.
const uint8_t* ReadBytes(const uint8_t* p, const uint8_t* end,
                         google::protobuf::internal::ArenaStringPtr* field,
                         google::protobuf::Arena* arena);

// Reads a string field. Fails if it is not UTF-8; the field then holds the
// invalid bytes. `path` names the field in the runtime's log line.
const uint8_t* ReadString(const uint8_t* p, const uint8_t* end,
                          google::protobuf::internal::ArenaStringPtr* field,
                          google::protobuf::Arena* arena, const char* path);

// Whether `value` is UTF-8. If not, the runtime logs `path`.
bool CheckUtf8(const std::string& value,
               google::protobuf::internal::WireFormatLite::Operation operation,
               const char* path);

// Reads into `message` what is there of a sub-message of `length` bytes that is
// longer than the input.
void ReadTruncatedMessage(const uint8_t* p, const uint8_t* end,
                          ptrdiff_t length, FlatParser parser,
                          google::protobuf::MessageLite* message,
                          ParseState* state);

// Reads a sub-message and merges it into `message`. If it is longer than the
// input, what is there is read and the parse then fails.
template <typename T>
inline const uint8_t* ReadMessage(const uint8_t* p, const uint8_t* end,
                                  T* message, ParseState* state) {
  ptrdiff_t length;
  p = ReadLength(p, end, &length);
  if (__builtin_expect(p == nullptr, false)) return nullptr;
  if (__builtin_expect(--state->recursion_budget < 0, false)) return nullptr;
  if (__builtin_expect(length > end - p, false)) {
    ReadTruncatedMessage(p, end, length, MessageAccess::Parser<T>(), message,
                         state);
    return nullptr;
  }
  p = MessageAccess::Parser<T>()(message, p, p + length, state);
  ++state->recursion_budget;
  return p;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_READ_SINGULAR_H_
