#include "frame/writer.h"

#include <algorithm>

namespace vantiro {
namespace frame {

uint8_t* Writer::Flush(uint8_t* p) {
  Send(buffer_, p - buffer_);
  return buffer_;
}

void Writer::Send(const void* data, ptrdiff_t size) {
  size = std::min(size, allowed_);
  allowed_ -= size;
  target_ = stream_->WriteRaw(data, static_cast<int>(size), target_);
}

uint8_t* WriteLongVarint(uint8_t* p, uint64_t value) {
  return google::protobuf::io::CodedOutputStream::WriteVarint64ToArray(value,
                                                                       p);
}

}  // namespace frame
}  // namespace vantiro
