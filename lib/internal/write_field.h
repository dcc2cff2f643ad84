// Writing fields that are not singular scalars.

#ifndef VANTIRO_LIB_INTERNAL_WRITE_FIELD_H_
#define VANTIRO_LIB_INTERNAL_WRITE_FIELD_H_

#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/metadata_lite.h>
#include <google/protobuf/repeated_field.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "internal/message_access.h"
#include "internal/tag.h"
#include "internal/varint.h"
#include "internal/write_varint.h"
#include "internal/writer.h"

namespace vantiro {
namespace internal {

// Writes a sub-message with its cached size as its length.
template <uint32_t kTag, typename T>
inline uint8_t* WriteMessage(uint8_t* p, const T& message, Writer* writer) {
  p = WriteTaggedVarint<kTag>(
      p, static_cast<uint32_t>(MessageAccess::CachedSize(message)));
  return MessageAccess::Serialize(message, p, writer);
}

template <uint32_t kTag, typename T>
inline uint8_t* WriteMessageField(uint8_t* p, const T* message,
                                  Writer* writer) {
  return message == nullptr ? p : WriteMessage<kTag>(p, *message, writer);
}

template <uint32_t kTag, typename T>
inline uint8_t* WriteRepeatedMessage(
    uint8_t* p, const google::protobuf::RepeatedPtrField<T>& field,
    Writer* writer) {
  for (const T& element : field) p = WriteMessage<kTag>(p, element, writer);
  return p;
}

// For a message that is written as one run of small fields, if there is no
// space for it. Out of line, so that the message's function has no call on its
// usual path.
template <typename T>
__attribute__((noinline, cold)) uint8_t* FlushAndSerialize(const T& message,
                                                           uint8_t* p,
                                                           Writer* writer) {
  return MessageAccess::Serialize(message, writer->Flush(p), writer);
}

// Writes a string or bytes field, or an element of one.
template <uint32_t kTag>
inline uint8_t* WriteBytes(uint8_t* p, const std::string& bytes,
                           Writer* writer) {
  p = WriteTaggedVarint<kTag>(p, uint64_t{bytes.size()});
  return writer->WriteRaw(p, bytes.data(),
                          static_cast<ptrdiff_t>(bytes.size()));
}

// The following write nothing for an empty field.

// Writes a repeated field of values of fixed size. Elements are written
// whatever their value, also -0.0.
template <uint32_t kTag, typename T>
inline uint8_t* WritePackedFixed(
    uint8_t* p, const google::protobuf::RepeatedField<T>& field,
    int cached_size, Writer* writer) {
  if (field.empty()) return p;
  p = WriteTaggedVarint<kTag>(p, static_cast<uint32_t>(cached_size));
  return writer->WriteRaw(p, field.data(),
                          field.size() * static_cast<ptrdiff_t>(sizeof(T)));
}

template <uint32_t kTag>
inline uint8_t* WritePackedFloats(
    uint8_t* p, const google::protobuf::RepeatedField<float>& field,
    int cached_size, Writer* writer) {
  return WritePackedFixed<kTag>(p, field, cached_size, writer);
}

// Writes a repeated bool that isn't empty.
template <uint32_t kTag>
inline uint8_t* WritePackedBools(
    uint8_t* p, const google::protobuf::RepeatedField<bool>& field,
    int cached_size, Writer* writer) {
  if (field.empty()) return p;
  p = WriteTaggedVarint<kTag>(p, static_cast<uint32_t>(cached_size));
  return writer->WriteRaw(p, field.data(), field.size());
}

// Writes a repeated varint of `Kind`, as many elements at once
// as there is space for.
template <uint32_t kTag, typename Kind>
inline uint8_t* WritePackedVarints(
    uint8_t* p,
    const google::protobuf::RepeatedField<typename Kind::Type>& field,
    int cached_size, Writer* writer) {
  constexpr int kMaxCount = Writer::kMaxSpace / Kind::kMaxSize;
  if (field.empty()) return p;
  p = WriteTaggedVarint<kTag>(p, static_cast<uint32_t>(cached_size));
  const typename Kind::Type* element = field.data();
  const typename Kind::Type* const end = element + field.size();
  while (element != end) {
    const ptrdiff_t count = std::min<ptrdiff_t>(end - element, kMaxCount);
    p = writer->EnsureSpace<kMaxCount * Kind::kMaxSize>(p);
    for (const typename Kind::Type* const next = element + count;
         element != next; ++element) {
      p = WriteVarint(p, Kind::ToVarint(*element));
    }
  }
  return p;
}

// Write each element with a tag of its own. A bool is a byte.

template <uint32_t kTag, typename Kind>
uint8_t* WriteUnpackedVarints(
    uint8_t* p,
    const google::protobuf::RepeatedField<typename Kind::Type>& field,
    Writer* writer) {
  for (const typename Kind::Type element : field) {
    p = writer->EnsureSpace<TagSize(kTag) + Kind::kMaxSize>(p);
    p = WriteVarint(WriteTag<kTag>(p), Kind::ToVarint(element));
  }
  return p;
}

template <uint32_t kTag, typename T>
uint8_t* WriteUnpackedFixed(uint8_t* p,
                            const google::protobuf::RepeatedField<T>& field,
                            Writer* writer) {
  for (const T element : field) {
    p = writer->EnsureSpace<TagSize(kTag) + sizeof(T)>(p);
    p = WriteTag<kTag>(p);
    Store(p, element);
    p += sizeof(T);
  }
  return p;
}

inline const std::string& UnknownFields(
    const google::protobuf::internal::InternalMetadata& metadata) {
  return metadata.unknown_fields<std::string>(
      google::protobuf::internal::GetEmptyString);
}

__attribute__((always_inline)) inline size_t UnknownFieldsSize(
    const google::protobuf::internal::InternalMetadata& metadata) {
  return __builtin_expect(metadata.have_unknown_fields(), false)
             ? UnknownFields(metadata).size()
             : 0;
}

// Writes the unknown fields unchanged. They follow all declared fields, so that
// the call is the last one of a message's function.
inline uint8_t* WriteUnknownFields(
    uint8_t* p, const google::protobuf::internal::InternalMetadata& metadata,
    Writer* writer) {
  if (__builtin_expect(!metadata.have_unknown_fields(), true)) return p;
  return writer->WriteString(p, UnknownFields(metadata));
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_WRITE_FIELD_H_
