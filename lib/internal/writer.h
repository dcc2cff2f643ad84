// Writing a record's bytes to the runtime's output stream.

#ifndef VANTIRO_LIB_INTERNAL_WRITER_H_
#define VANTIRO_LIB_INTERNAL_WRITER_H_

#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/metadata_lite.h>
#include <google/protobuf/repeated_field.h>
#include <google/protobuf/wire_format_lite.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "internal/tag.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {

// Writes a varint of three bytes or more. Stores at least eight bytes at `p`,
// so up to kLongVarintOverrun bytes after the varint change too.
uint8_t* WriteLongVarint(uint8_t* p, uint64_t value);
constexpr int kLongVarintOverrun = sizeof(uint64_t) - 3;

// Gives the space that emitted code writes to: a buffer, which is copied to the
// stream when it is full. Emitted code calls EnsureSpace once for a run of
// small fields and then writes through a plain pointer, `p`. Copying every byte
// once more costs less than asking the stream for space every few bytes. It
// also means that nothing is ever written outside the stream's space.
class Writer {
 public:
  // What happens to bytes beyond the cached size of the root message. There are
  // such bytes only if a cached size is stale.
  enum class Overflow {
    // They are dropped: the stream may be an array of exactly the cached size.
    kDrop,
    // They are written to the stream.
    kWrite,
  };

  // The most that one call of EnsureSpace may ask for.
  static constexpr int kMaxSpace = 128;
  static constexpr int kBufferSize = 8 * kMaxSpace;

  // Writes to `stream`, whose position is `target`, a record whose root message
  // has the cached size `size`.
  Writer(uint8_t* target, google::protobuf::io::EpsCopyOutputStream* stream,
         int size, Overflow overflow)
      : stream_(stream),
        target_(target),
        remaining_(overflow == Overflow::kDrop ? size : PTRDIFF_MAX) {}
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // Where to write first.
  uint8_t* Begin() { return buffer_; }

  // The position to continue at, where `kSize` bytes fit.
  template <int kSize>
  uint8_t* EnsureSpace(uint8_t* p) {
    static_assert(kSize <= kMaxSpace, "more than the buffer is sure to hold");
    const bool fits = buffer_ + kBufferSize - p >= kSize;
    return __builtin_expect(fits, true) ? p : Flush(p);
  }

  // Writes any number of bytes.
  uint8_t* WriteRaw(uint8_t* p, const void* data, ptrdiff_t size) {
    const bool fits = buffer_ + kBufferSize - p >= size;
    if (__builtin_expect(!fits, false)) {
      p = Flush(p);
      Send(data, size);
      return p;
    }
    std::memcpy(p, data, static_cast<size_t>(size));
    return p + size;
  }

  // Ends the writing. Returns the stream's new position.
  uint8_t* Finish(uint8_t* p) {
    const ptrdiff_t size = std::min<ptrdiff_t>(p - buffer_, remaining_);
    // The stream of an empty record may have no memory at all.
    if (size == 0) return target_;
    if (size < 8 || size > 16) {
      return stream_->WriteRaw(buffer_, static_cast<int>(size), target_);
    }
    // A short record, for which a call of memcpy would take a noticeable part
    // of the time.
    static_assert(google::protobuf::io::EpsCopyOutputStream::kSlopBytes >= 16,
                  "the stream always has space for 16 bytes");
    target_ = stream_->EnsureSpace(target_);
    std::memcpy(target_, buffer_, 8);
    std::memcpy(target_ + size - 8, buffer_ + size - 8, 8);
    return target_ + size;
  }

 private:
  // Sends the buffer up to `p` to the stream. Returns the buffer's begin.
  uint8_t* Flush(uint8_t* p);
  void Send(const void* data, ptrdiff_t size);

  google::protobuf::io::EpsCopyOutputStream* const stream_;
  // The stream's position, and how many more bytes may be written to it.
  uint8_t* target_;
  ptrdiff_t remaining_;
  uint8_t buffer_[kBufferSize + kLongVarintOverrun];
};

template <uint32_t kTag>
inline uint8_t* WriteTag(uint8_t* p) {
  constexpr RawTag kRaw = ToRawTag(kTag);
  p[0] = static_cast<uint8_t>(kRaw);
  if (TagSize(kTag) == 2) p[1] = static_cast<uint8_t>(kRaw >> 8);
  return p + TagSize(kTag);
}

__attribute__((always_inline)) inline uint8_t* WriteVarint(uint8_t* p,
                                                           uint64_t value) {
  if (value < 0x80) {
    p[0] = static_cast<uint8_t>(value);
    return p + 1;
  }
  if (value < 0x4000) {
    p[0] = static_cast<uint8_t>(value | 0x80);
    p[1] = static_cast<uint8_t>(value >> 7);
    return p + 2;
  }
  return WriteLongVarint(p, value);
}

inline uint8_t* WriteFloat(uint8_t* p, float value) {
  std::memcpy(p, &value, sizeof(value));
  return p + sizeof(value);
}

// Whether `value` compares unequal to 0.0: false for both zeros
// (WireScalars.NegativeZero*), true for a NaN. Testing the bits takes one
// branch, the comparison itself two.
inline bool IsNonZero(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits << 1 != 0;
}

inline uint8_t* WriteTrue(uint8_t* p) {
  p[0] = 1;
  return p + 1;
}

// A negative int32 or enum is sign-extended to 64 bits and takes ten bytes.
inline uint64_t ToVarint(int32_t value) {
  return static_cast<uint64_t>(static_cast<int64_t>(value));
}
inline uint64_t ToVarint(uint32_t value) { return value; }
inline uint64_t ToVarint(int64_t value) { return static_cast<uint64_t>(value); }
inline uint64_t ToVarint(uint64_t value) { return value; }
inline uint64_t BoolToVarint(bool value) { return value ? 1 : 0; }
inline uint64_t ToZigZag(int32_t value) {
  return google::protobuf::internal::WireFormatLite::ZigZagEncode32(value);
}
inline uint64_t ToZigZag(int64_t value) {
  return google::protobuf::internal::WireFormatLite::ZigZagEncode64(value);
}

// Writes a sub-message with its cached size as its length.
template <uint32_t kTag, typename T>
inline uint8_t* WriteMessage(uint8_t* p, const T& message, Writer* writer) {
  p = writer->EnsureSpace<kMaxTagSize + kMaxVarintSize>(p);
  p = WriteTag<kTag>(p);
  p = WriteVarint(p, static_cast<uint32_t>(message._InternalCachedSize()));
  return message._InternalSerializeFlat(p, writer);
}

// Writes a string or bytes field that isn't empty.
template <uint32_t kTag>
inline uint8_t* WriteBytes(uint8_t* p, const std::string& bytes,
                           Writer* writer) {
  p = writer->EnsureSpace<kMaxTagSize + kMaxVarintSize>(p);
  p = WriteTag<kTag>(p);
  p = WriteVarint(p, bytes.size());
  return writer->WriteRaw(p, bytes.data(),
                          static_cast<ptrdiff_t>(bytes.size()));
}

// Writes the tag and the length of a packed run, which is its cached size.
template <uint32_t kTag>
inline uint8_t* WritePackedHeader(uint8_t* p, int cached_size, Writer* writer) {
  p = writer->EnsureSpace<kMaxTagSize + kMaxVarintSize>(p);
  p = WriteTag<kTag>(p);
  return WriteVarint(p, static_cast<uint32_t>(cached_size));
}

// Writes a repeated float that isn't empty. Elements are written whatever their
// value, also -0.0.
template <uint32_t kTag>
inline uint8_t* WritePackedFloats(
    uint8_t* p, const google::protobuf::RepeatedField<float>& field,
    int cached_size, Writer* writer) {
  p = WritePackedHeader<kTag>(p, cached_size, writer);
  return writer->WriteRaw(p, field.data(),
                          field.size() * static_cast<ptrdiff_t>(sizeof(float)));
}

// Writes a repeated varint that isn't empty. `kToVarint` encodes an element.
template <uint32_t kTag, typename T, uint64_t (*kToVarint)(T)>
inline uint8_t* WritePackedVarints(
    uint8_t* p, const google::protobuf::RepeatedField<T>& field,
    int cached_size, Writer* writer) {
  p = WritePackedHeader<kTag>(p, cached_size, writer);
  for (const T element : field) {
    p = writer->EnsureSpace<kMaxVarintSize>(p);
    p = WriteVarint(p, kToVarint(element));
  }
  return p;
}

inline const std::string& UnknownFields(
    const google::protobuf::internal::InternalMetadata& metadata) {
  return metadata.unknown_fields<std::string>(
      google::protobuf::internal::GetEmptyString);
}

inline size_t UnknownFieldsSize(
    const google::protobuf::internal::InternalMetadata& metadata) {
  return __builtin_expect(metadata.have_unknown_fields(), false)
             ? UnknownFields(metadata).size()
             : 0;
}

// Writes the unknown fields unchanged. They follow all declared fields.
inline uint8_t* WriteUnknownFields(
    uint8_t* p, const google::protobuf::internal::InternalMetadata& metadata,
    Writer* writer) {
  if (__builtin_expect(!metadata.have_unknown_fields(), true)) return p;
  const std::string& bytes = UnknownFields(metadata);
  return writer->WriteRaw(p, bytes.data(),
                          static_cast<ptrdiff_t>(bytes.size()));
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_WRITER_H_
