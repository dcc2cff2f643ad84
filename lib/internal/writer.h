// The space that records are written to.

#ifndef VANTIRO_LIB_INTERNAL_WRITER_H_
#define VANTIRO_LIB_INTERNAL_WRITER_H_

#include <google/protobuf/io/coded_stream.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "internal/stream_end.h"
#include "internal/tag.h"
#include "internal/varint.h"
#include "internal/write_varint.h"

namespace vantiro {
namespace internal {

// Gives emitted code the space that it writes to: that of the runtime's stream
// while it lasts, and near its end a buffer, which is copied to the stream when
// it is full. Emitted code asks once for the space of a run of small fields and
// then writes through a plain pointer, `p`, which it passes on. Nothing is ever
// written outside the stream's space or behind the root's cached size, whatever
// the cached sizes say (WireWriting.StaleSizes*).
//
// Between two fields `p` is within the space that was asked for. After that the
// writer keeps kHeaderSize bytes for the tag and the length of a sub-message,
// string or packed run: these need not ask, but what follows the length has to.
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

  // Where to write first.
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

  // Ends the writing. Returns the stream's new position.
  uint8_t* Finish(uint8_t* p);

 private:
  // Shorter records are written to the buffer and copied: that costs less than
  // changing to the buffer near their end.
  static constexpr ptrdiff_t kMinStreamSpace = 300;
  static constexpr int kReserve = kHeaderSize + kWriteOverrun;
  static_assert(kMinStreamSpace > kReserve + kMaxSpace,
                "the stream's space holds what may be asked for");

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

  // Tells the stream what was written up to `p`.
  void Commit(uint8_t* p);
  void Send(const void* data, ptrdiff_t size);
  uint8_t* FlushAndWriteRaw(uint8_t* p, const void* data, ptrdiff_t size);
  // The stream's space if it has become large again, otherwise the buffer.
  uint8_t* ChooseSpace();

  google::protobuf::io::EpsCopyOutputStream* const stream_;
  // The stream's position, and how many more bytes may be written to it.
  uint8_t* target_;
  ptrdiff_t remaining_;
  // Where the bytes begin that the stream was not told of: at `target_` or in
  // the buffer; and the end of the space, without the reserve after it.
  uint8_t* begin_;
  uint8_t* end_;
  uint8_t buffer_[kBufferSize + kReserve];
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_WRITER_H_
