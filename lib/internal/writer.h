// The space that records are written to.

#ifndef VANTIRO_LIB_INTERNAL_WRITER_H_
#define VANTIRO_LIB_INTERNAL_WRITER_H_

#include <google/protobuf/io/coded_stream.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "internal/stream_end.h"
#include "internal/tag.h"
#include "internal/varint.h"
#include "internal/write_varint.h"

namespace vantiro {
namespace internal {

// Gives emitted code the space that it writes to: the space of the runtime's
// stream, and near the end of that a buffer, which is copied to the stream when
// it is full. Emitted code asks once for the space of a run of small fields and
// then writes through a plain pointer, `p`. Nothing is ever written outside the
// stream's space or beyond the root message's cached size, even if cached sizes
// are stale (Writing.StaleSizes*).
//
// Between two fields `p` is within the space that was asked for. After this
// space there are kHeaderSize bytes more for the tag and the length of a
// sub-message, string or packed run, which are written without asking. What
// follows the length has to ask.
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

  // The most that may be asked for at once.
  static constexpr int kMaxSpace = 128;
  static constexpr int kBufferSize = 8 * kMaxSpace;
  static constexpr int kHeaderSize = kMaxTagSize + kMaxVarintSize;

  // Writes to `stream`, whose position is `target`, a record whose root message
  // has the cached size `size`.
  Writer(uint8_t* target, google::protobuf::io::EpsCopyOutputStream* stream,
         int size, Overflow overflow)
      : stream_(stream),
        target_(target),
        remaining_(overflow == Overflow::kDrop ? size : PTRDIFF_MAX) {}
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // The position to begin at.
  uint8_t* Begin() {
    return StreamSpace() < kMinStreamSpace ? UseBuffer() : UseStream();
  }

  // Whether `kSize` bytes fit at `p`.
  template <int kSize>
  bool HasSpace(const uint8_t* p) const {
    static_assert(kSize <= kMaxSpace, "more than the buffer is sure to hold");
    return __builtin_expect(end_ - p >= kSize, true);
  }
  // The position to continue at, where `kSize` bytes fit.
  template <int kSize>
  uint8_t* EnsureSpace(uint8_t* p) {
    return HasSpace<kSize>(p) ? p : Flush(p);
  }
  // Gives what was written up to `p` to the stream. Returns the position to
  // continue at, where kMaxSpace bytes fit.
  uint8_t* Flush(uint8_t* p);

  // Writes any number of bytes.
  uint8_t* WriteRaw(uint8_t* p, const void* data, ptrdiff_t size) {
    if (__builtin_expect(end_ - p < size, false)) {
      return FlushAndWriteRaw(p, data, size);
    }
    std::memcpy(p, data, static_cast<size_t>(size));
    return p + size;
  }

  // The same out of line, for what is rare.
  uint8_t* WriteString(uint8_t* p, const std::string& bytes);

  // Ends the writing. Returns the stream's new position.
  uint8_t* Finish(uint8_t* p);

 private:
  // In less space than this, a record is written to the buffer and copied: that
  // costs less than changing to the buffer near the end of the record.
  static constexpr ptrdiff_t kMinStreamSpace = 300;
  static constexpr int kReserve = kHeaderSize + kWriteOverrun;
  static_assert(kMinStreamSpace > kReserve + kMaxSpace,
                "the stream's space holds what may be asked for at once");

  bool IsUsingBuffer() const { return begin_ == buffer_; }
  // How many bytes may be written to the stream's space.
  ptrdiff_t StreamSpace() const {
    return std::min<ptrdiff_t>(StreamEnd(*stream_) - target_, remaining_);
  }
  uint8_t* UseStream() {
    begin_ = target_;
    end_ = target_ + (StreamSpace() - kReserve);
    return begin_;
  }
  uint8_t* UseBuffer() {
    begin_ = buffer_;
    end_ = buffer_ + kBufferSize;
    return begin_;
  }

  // Counts what was written up to `p` to the stream's space, or copies it to
  // the stream from the buffer.
  void Commit(uint8_t* p);
  // Copies to the stream.
  void Send(const void* data, ptrdiff_t size);
  uint8_t* FlushAndWriteRaw(uint8_t* p, const void* data, ptrdiff_t size);
  // Uses the stream's space if there is much of it again, otherwise the buffer.
  uint8_t* ChooseSpace();

  google::protobuf::io::EpsCopyOutputStream* const stream_;
  // The stream's position, and how many more bytes may be written to it.
  uint8_t* target_;
  ptrdiff_t remaining_;
  // The begin of the space in use, which is `target_` or `buffer_`, and its end
  // without the reserve.
  uint8_t* begin_;
  uint8_t* end_;
  uint8_t buffer_[kBufferSize + kReserve];
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_WRITER_H_
