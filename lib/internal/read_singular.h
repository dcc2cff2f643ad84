// Reading singular fields other than varints.

#ifndef VANTIRO_LIB_INTERNAL_READ_SINGULAR_H_
#define VANTIRO_LIB_INTERNAL_READ_SINGULAR_H_

#include <google/protobuf/arenastring.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "internal/message_access.h"
#include "internal/parse_state.h"
#include "internal/tag.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "floats are copied byte by byte: little-endian targets only");

constexpr ptrdiff_t kFloatSize = sizeof(float);

// Reads a value of fixed size: any bytes, for a float or double NaN and -0.0
// included.
template <typename T>
inline const uint8_t* ReadFixed(const uint8_t* p, const uint8_t* end,
                                T* field) {
  constexpr ptrdiff_t kValueSize = sizeof(T);
  if (__builtin_expect(end - p < kValueSize, false)) return nullptr;
  std::memcpy(field, p, sizeof(*field));
  return p + sizeof(*field);
}

inline const uint8_t* ReadFloat(const uint8_t* p, const uint8_t* end,
                                float* field) {
  return ReadFixed(p, end, field);
}

// Whether `*p` is the tag `kTag`, and space for a float follows, which is
// skipped too.
template <uint32_t kTag>
__attribute__((always_inline)) inline bool SkipTaggedFloat(const uint8_t** p) {
  constexpr RawTag kRaw = ToRawTag(kTag);
  const uint8_t* const tag = *p;
  *p += TagSize(kTag) + kFloatSize;
  if (TagSize(kTag) == 1) return tag[0] == kRaw;
  uint16_t both;
  std::memcpy(&both, tag, sizeof(both));
  return both == kRaw;
}

template <uint32_t kFirstTag, uint32_t... kIndex>
__attribute__((always_inline)) inline bool AreFloatsNext(
    const uint8_t* p, const uint8_t* end,
    std::integer_sequence<uint32_t, kIndex...> /*indices*/) {
  constexpr ptrdiff_t kSize =
      (TagSize(kFirstTag) + kFloatSize) +
      ((TagSize(kFirstTag + 8 * (kIndex + 1)) + kFloatSize) + ...);
  if (end - p < kSize) return false;
  p += TagSize(kFirstTag) + kFloatSize;
  return (SkipTaggedFloat<kFirstTag + 8 * (kIndex + 1)>(&p) && ...);
}

// Called at the tag `kFirstTag` of a float field: whether `kCount` float fields
// with consecutive field numbers are there, beginning with this one.
template <uint32_t kFirstTag, uint32_t kCount>
__attribute__((always_inline)) inline bool AreFloatsNext(const uint8_t* p,
                                                         const uint8_t* end) {
  return AreFloatsNext<kFirstTag>(
      p, end, std::make_integer_sequence<uint32_t, kCount - 1>());
}

template <uint32_t kFirstTag, uint32_t... kIndex>
__attribute__((always_inline)) inline const uint8_t* ReadFloatFields(
    const uint8_t* p, float* first,
    std::integer_sequence<uint32_t, kIndex...> /*indices*/) {
  ((p += TagSize(kFirstTag + 8 * kIndex),
    std::memcpy(first + kIndex, p, sizeof(float)), p += kFloatSize),
   ...);
  return p;
}

// Reads them, if AreFloatsNext, into floats that are adjacent in memory. The
// positions of all are constants. Returns the position after them.
template <uint32_t kFirstTag, uint32_t kCount>
__attribute__((always_inline)) inline const uint8_t* ReadFloatFields(
    const uint8_t* p, float* first) {
  return ReadFloatFields<kFirstTag>(
      p, first, std::make_integer_sequence<uint32_t, kCount>());
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

// The same for an element of a repeated field.
const uint8_t* ReadBytes(const uint8_t* p, const uint8_t* end,
                         std::string* element);
const uint8_t* ReadString(const uint8_t* p, const uint8_t* end,
                          std::string* element, const char* path);

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
