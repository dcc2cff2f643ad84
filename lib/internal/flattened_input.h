// The bytes of a stream in one piece, and where its chunks ended.

#ifndef VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_
#define VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantiro {
namespace internal {

// The parser reads flat memory, but what it keeps of unusual input depends on
// the chunks of the stream: a repeated field looks ahead within one chunk only.
class FlattenedInput {
 public:
  std::string* bytes() { return &bytes_; }
  const uint8_t* begin() const {
    return reinterpret_cast<const uint8_t*>(bytes_.data());
  }
  const uint8_t* end() const { return begin() + bytes_.size(); }

  // Adds the offset at which a chunk ends, which is after those added before.
  void AddChunkEnd(size_t offset) { chunk_ends_.push_back(offset); }
  void RemoveLastChunkEnd() { chunk_ends_.pop_back(); }

  // The end of the chunk that the byte before `p` lies in.
  const uint8_t* EndOfChunk(const uint8_t* p) const {
    const auto offset = static_cast<size_t>(p - begin());
    const auto found =
        std::lower_bound(chunk_ends_.begin(), chunk_ends_.end(), offset);
    return found == chunk_ends_.end() || *found > bytes_.size()
               ? end()
               : begin() + *found;
  }

  // Whether the stream ended without a limit.
  bool is_open_ended = false;

 private:
  std::string bytes_;
  std::vector<size_t> chunk_ends_;
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_
