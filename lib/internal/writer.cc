#include "internal/writer.h"

namespace vantiro {
namespace internal {

uint8_t* Writer::Flush(uint8_t* p) {
  const bool was_using_buffer = IsUsingBuffer();
  Commit(p);
  // The next bytes may cross the end of the stream's space, which only the
  // stream itself can do: they go to the buffer.
  return was_using_buffer ? ChooseSpace() : UseBuffer();
}

uint8_t* Writer::FlushAndWriteRaw(uint8_t* p, const void* data,
                                  ptrdiff_t size) {
  Commit(p);
  Send(data, size);
  return ChooseSpace();
}

uint8_t* Writer::WriteString(uint8_t* p, const std::string& bytes) {
  return WriteRaw(p, bytes.data(), static_cast<ptrdiff_t>(bytes.size()));
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
  return StreamSpace() < ptrdiff_t{2} * kBufferSize ? UseBuffer() : UseStream();
}

}  // namespace internal
}  // namespace vantiro
