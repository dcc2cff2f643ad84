// A stream's bytes in one piece, and where its blocks ended.

#ifndef VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_
#define VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantiro {
namespace internal {

// The parser wants flat memory, and yet what it keeps of odd input depends on
// how the input came: a list looks ahead within a block only.
class GatheredBlocks {
 public:
  std::string* bytes() { return &bytes_; }
  const uint8_t* begin() const {
    return reinterpret_cast<const uint8_t*>(bytes_.data());
  }
  const uint8_t* end() const { return begin() + bytes_.size(); }

  // Notes that a block ends at an offset, behind those noted before.
  void MarkEnd(size_t offset) { ends_.push_back(offset); }
  void UnmarkLastEnd() { ends_.pop_back(); }

  // The end of the block that the byte before `p` lies in.
  const uint8_t* EndOfBlock(const uint8_t* p) const {
    const auto offset = static_cast<size_t>(p - begin());
    const auto found = std::lower_bound(ends_.begin(), ends_.end(), offset);
    return found == ends_.end() || *found > bytes_.size() ? end()
                                                          : begin() + *found;
  }

  // Whether the stream ended by itself, not at a limit.
  bool is_open_ended = false;

 private:
  std::string bytes_;
  std::vector<size_t> ends_;
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_FLATTENED_INPUT_H_
