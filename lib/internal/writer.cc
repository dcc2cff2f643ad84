#include "internal/writer.h"

namespace vantiro {
namespace internal {

uint8_t* Writer::Flush(uint8_t* p) {
  const bool was_using_buffer = IsUsingBuffer();
  Commit(p);
  // The stream's space ends here. The buffer takes the bytes across its end.
  return was_using_buffer ? ChooseSpace() : UseBuffer();
}

uint8_t* Writer::FlushAndWriteRaw(uint8_t* p, const void* data,
                                  ptrdiff_t size) {
  Commit(p);
  Send(data, size);
  return ChooseSpace();
}

uint8_t* Writer::Finish(uint8_t* p) {
  if (!IsUsingBuffer()) return p;
  const ptrdiff_t size = std::min<ptrdiff_t>(p - buffer_, remaining_);
  // The stream of an empty record may have no memory at all.
  if (size == 0) return target_;
  if (size < 8 || size > 16) {
    return stream_->WriteRaw(buffer_, static_cast<int>(size), target_);
  }
  // A short record, for which a call of memcpy would take a noticeable part of
  // the time.
  static_assert(google::protobuf::io::EpsCopyOutputStream::kSlopBytes >= 16,
                "the stream always has space for 16 bytes");
  target_ = stream_->EnsureSpace(target_);
  std::memcpy(target_, buffer_, 8);
  std::memcpy(target_ + size - 8, buffer_ + size - 8, 8);
  return target_ + size;
}

void Writer::Commit(uint8_t* p) {
  if (IsUsingBuffer()) {
    Send(buffer_, p - buffer_);
  } else {
    remaining_ -= p - target_;
    target_ = p;
  }
}

void Writer::Send(const void* data, ptrdiff_t size) {
  size = std::min(size, remaining_);
  if (size == 0) return;
  remaining_ -= size;
  target_ = stream_->WriteRaw(data, static_cast<int>(size), target_);
}

uint8_t* Writer::ChooseSpace() {
  return StreamSpace() < 2 * kBufferSize ? UseBuffer() : UseStream();
}

uint8_t* WriteLongVarint(uint8_t* p, uint64_t value) {
  // Spreads the low 56 bits over eight bytes of seven bits each.
  uint64_t spread = (value & 0x000000000fffffff) | (value & 0x00fffffff0000000)
                                                       << 4;
  spread = (spread & 0x00003fff00003fff) | (spread & 0x0fffc0000fffc000) << 2;
  spread = (spread & 0x007f007f007f007f) | (spread & 0x3f803f803f803f80) << 1;
  constexpr uint64_t kContinuationBits = 0x8080808080808080;
  const uint64_t high = value >> 56;
  if (high == 0) {
    const int last = (63 - __builtin_clzll(spread)) / 8;
    spread |= kContinuationBits & ((uint64_t{1} << (8 * last)) - 1);
    std::memcpy(p, &spread, sizeof(spread));
    return p + last + 1;
  }
  spread |= kContinuationBits;
  std::memcpy(p, &spread, sizeof(spread));
  p[8] = static_cast<uint8_t>(high);
  if (high < 0x80) return p + 9;
  p[8] = static_cast<uint8_t>(high | 0x80);
  p[9] = 1;
  return p + 10;
}

}  // namespace internal
}  // namespace vantiro
