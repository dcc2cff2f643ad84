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

namespace vantiro {
namespace internal {

// Hands out room to write to, in a buffer of its own that it sends to the
// stream when it is full. The emitted code asks once for a run of small fields
// (Room) and then writes through a bare pointer, `p`, which it passes on. One
// copy of every byte is cheaper than asking the stream for room every few
// bytes, and the stream sees only whole blocks: nothing is ever written outside
// its space.
class Writer {
 public:
  // What becomes of bytes beyond the cached size of the root, which only a
  // stale cached size can bring about.
  enum class Excess {
    // They are dropped: the stream may be a bare array of just that size.
    kDrop,
    // They go to the stream too.
    kKeep,
  };

  // The most that one call of Room may ask for.
  static constexpr int kMaxRoom = 128;
  static constexpr int kBufferSize = 8 * kMaxRoom;

  // Writes to `stream`, whose position is `target`, a record whose root has
  // the cached size `size`.
  Writer(uint8_t* target, google::protobuf::io::EpsCopyOutputStream* stream,
         int size, Excess excess)
      : stream_(stream),
        target_(target),
        allowed_(excess == Excess::kDrop ? size : PTRDIFF_MAX) {}
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // Where to write first.
  uint8_t* Begin() { return buffer_; }

  // Where to write on so that `size` bytes fit, at most kMaxRoom.
  uint8_t* Room(uint8_t* p, int size) {
    const bool fits = buffer_ + kBufferSize - p >= size;
    return __builtin_expect(fits, true) ? p : Flush(p);
  }

  // Writes `size` bytes, as many as they may be.
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
    const ptrdiff_t size = std::min<ptrdiff_t>(p - buffer_, allowed_);
    // An empty record may be written to nowhere.
    if (size == 0) return target_;
    if (size < 8 || size > 16) {
      return stream_->WriteRaw(buffer_, static_cast<int>(size), target_);
    }
    // The smallest records, where the call of a copy would tell. The stream
    // always has room for 16 bytes.
    target_ = stream_->EnsureSpace(target_);
    std::memcpy(target_, buffer_, 8);
    std::memcpy(target_ + size - 8, buffer_ + size - 8, 8);
    return target_ + size;
  }

 private:
  // Sends what the buffer holds up to `p`, and gives the buffer to write to.
  uint8_t* Flush(uint8_t* p);
  void Send(const void* data, ptrdiff_t size);

  google::protobuf::io::EpsCopyOutputStream* const stream_;
  // The stream's position, and how many bytes it may still be given.
  uint8_t* target_;
  ptrdiff_t allowed_;
  // With some bytes to spare for WriteLongVarint.
  uint8_t buffer_[kBufferSize + 8];
};

template <uint32_t kTag>
inline uint8_t* WriteTag(uint8_t* p) {
  constexpr RawTag kRaw = ToRawTag(kTag);
  p[0] = static_cast<uint8_t>(kRaw);
  if (TagSize(kTag) == 2) p[1] = static_cast<uint8_t>(kRaw >> 8);
  return p + TagSize(kTag);
}

// Writes a varint of three bytes or more. May overwrite what stands behind it,
// up to the tenth byte.
uint8_t* WriteLongVarint(uint8_t* p, uint64_t value);

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

// The test of a floating compare with 0.0, by the bits but for the sign: both
// zeros are zero (WireScalars.NegativeZero*), a NaN is not. One branch, where
// the compare itself would take two.
inline bool IsNonZero(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits << 1 != 0;
}

inline uint8_t* WriteTrue(uint8_t* p) {
  p[0] = 1;
  return p + 1;
}

// A negative int32 or enum is extended to 64 bits: ten bytes.
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

constexpr int kMaxTagSize = 2;
constexpr int kMaxLengthSize = 10;

// Writes a sub-message with its cached size as its length.
template <uint32_t kTag, typename T>
inline uint8_t* WriteMessage(uint8_t* p, const T& message, Writer* writer) {
  p = writer->Room(p, kMaxTagSize + kMaxLengthSize);
  p = WriteTag<kTag>(p);
  p = WriteVarint(p, static_cast<uint32_t>(message._InternalCachedSize()));
  return message._InternalSerializeFlat(p, writer);
}

// Writes a string or bytes field that isn't empty.
template <uint32_t kTag>
inline uint8_t* WriteBytes(uint8_t* p, const std::string& bytes,
                           Writer* writer) {
  p = writer->Room(p, kMaxTagSize + kMaxLengthSize);
  p = WriteTag<kTag>(p);
  p = WriteVarint(p, bytes.size());
  return writer->WriteRaw(p, bytes.data(),
                          static_cast<ptrdiff_t>(bytes.size()));
}

// Writes the tag and the cached length of a packed block.
template <uint32_t kTag>
inline uint8_t* WriteBlockHead(uint8_t* p, int cached_size, Writer* writer) {
  p = writer->Room(p, kMaxTagSize + kMaxLengthSize);
  p = WriteTag<kTag>(p);
  return WriteVarint(p, static_cast<uint32_t>(cached_size));
}

// Writes a list of floats that isn't empty, -0.0 and all.
template <uint32_t kTag>
inline uint8_t* WritePackedFloats(
    uint8_t* p, const google::protobuf::RepeatedField<float>& list,
    int cached_size, Writer* writer) {
  p = WriteBlockHead<kTag>(p, cached_size, writer);
  return writer->WriteRaw(p, list.data(), list.size() * ptrdiff_t{4});
}

// Writes a list of varints that isn't empty. `kToVarint` gives an element's.
template <uint32_t kTag, typename T, uint64_t (*kToVarint)(T)>
inline uint8_t* WritePackedVarints(
    uint8_t* p, const google::protobuf::RepeatedField<T>& list, int cached_size,
    Writer* writer) {
  p = WriteBlockHead<kTag>(p, cached_size, writer);
  for (const T element : list) {
    p = writer->Room(p, kMaxLengthSize);
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

// Writes the unknown fields as they stand, behind all known ones.
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
