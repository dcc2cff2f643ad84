// Reads the parts of the wire format within bounds.

#ifndef VANTIRO_TOOLS_WIRE_WIRE_READER_H_
#define VANTIRO_TOOLS_WIRE_WIRE_READER_H_

#include <google/protobuf/wire_format_lite.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vantiro {
namespace tools {

using WireType = google::protobuf::internal::WireFormatLite::WireType;

constexpr size_t kMaxVarintSize = 10;

struct Varint {
  // Its low 64 bits.
  uint64_t value = 0;
  size_t size = 0;
  // Whether it has more bits than `value`.
  bool is_truncated = false;

  // Whether `value` is written in these bytes.
  bool IsShortest() const {
    return !is_truncated && (size == 1 || value >> (7 * (size - 1)) != 0);
  }
};

struct Tag {
  int number() const { return static_cast<int>(value >> 3); }
  WireType wire_type() const { return static_cast<WireType>(value & 7); }

  uint32_t value = 0;
  // Whether the tag is written in the bytes that were read.
  bool is_shortest = false;
};

// A position in bytes. Each Read function moves it behind what it reads, or
// returns false and leaves it if that is cut off or invalid.
class WireReader {
 public:
  explicit WireReader(std::string_view bytes)
      : begin_(bytes.data()), p_(begin_), end_(begin_ + bytes.size()) {}

  size_t offset() const { return static_cast<size_t>(p_ - begin_); }
  size_t left() const { return static_cast<size_t>(end_ - p_); }
  bool AtEnd() const { return p_ == end_; }
  // The next bytes, of which `size` have to be left.
  std::string_view Peek(size_t size) const { return {p_, size}; }

  // Fails if it is cut off or has more than ten bytes.
  bool ReadVarint(Varint* varint) {
    // Most have one byte.
    if (p_ != end_ && static_cast<uint8_t>(*p_) < 0x80) {
      *varint = {static_cast<uint8_t>(*p_++), 1, false};
      return true;
    }
    return ReadLongVarint(varint);
  }
  // Reads a varint and takes its low 32 bits, as the library does.
  bool ReadTag(Tag* tag) {
    Varint varint;
    if (!ReadVarint(&varint)) return false;
    tag->value = static_cast<uint32_t>(varint.value);
    tag->is_shortest = varint.IsShortest() && varint.value <= UINT32_MAX;
    return true;
  }
  bool ReadFixed32(uint32_t* value) { return ReadBytes(value); }
  bool ReadFixed64(uint64_t* value) { return ReadBytes(value); }
  bool Skip(uint64_t size) {
    if (size > left()) return false;
    p_ += size;
    return true;
  }

  // Makes the next `size` bytes, which have to be left, the last ones. Returns
  // how many more there were, for Extend.
  size_t Limit(size_t size) {
    const size_t rest = left() - size;
    end_ -= rest;
    return rest;
  }
  void Extend(size_t rest) { end_ += rest; }

 private:
  bool ReadLongVarint(Varint* varint);

  // The wire format is little-endian, as is every platform of the library.
  template <typename T>
  bool ReadBytes(T* value) {
    if (left() < sizeof(T)) return false;
    std::memcpy(value, p_, sizeof(T));
    p_ += sizeof(T);
    return true;
  }

  const char* begin_;
  const char* p_;
  const char* end_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_WIRE_READER_H_
