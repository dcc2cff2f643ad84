#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {

bool WireReader::ReadLongVarint(Varint* varint) {
  uint64_t value = 0;
  for (size_t i = 0; i < kMaxVarintSize && p_ + i != end_; ++i) {
    const auto byte = static_cast<uint8_t>(p_[i]);
    value |= static_cast<uint64_t>(byte & 0x7f) << (7 * i);
    if (byte < 0x80) {
      *varint = {value, i + 1, i + 1 == kMaxVarintSize && byte > 1};
      p_ += i + 1;
      return true;
    }
  }
  return false;
}

}  // namespace tools
}  // namespace vantiro
