// The offsets at the begin of the lines of a dump.

#ifndef VANTIRO_TOOLS_IO_DUMP_OFFSETS_H_
#define VANTIRO_TOOLS_IO_DUMP_OFFSETS_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace vantiro {
namespace tools {

// The first line may have any offset. Offsets of seven digits, which od writes,
// can be octal, decimal or hexadecimal; others are hexadecimal.
class DumpOffsets {
 public:
  bool HasFirst() const { return has_first_; }

  // The offset of the next line. Whether it can be that of the line that
  // follows `size` bytes.
  bool Add(std::string_view digits, size_t size);

  // The offset after a line of only *, which stands for repetitions of the line
  // before, of `line_size` bytes: the size with the repetitions, if there is
  // one that is possible, and only one.
  std::optional<size_t> AddAfterRepetition(std::string_view digits, size_t size,
                                           size_t line_size);

 private:
  struct Reading {
    int base;
    uint64_t first;
  };

  bool has_first_ = false;
  // Those that agree with all lines.
  std::vector<Reading> readings_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_DUMP_OFFSETS_H_
