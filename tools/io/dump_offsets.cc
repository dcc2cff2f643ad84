#include "tools/io/dump_offsets.h"

#include <algorithm>
#include <charconv>

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kDigitsOfOd = 7;
constexpr uint64_t kMaxSize = uint64_t{1} << 30;

std::optional<uint64_t> Parse(std::string_view digits, int base) {
  uint64_t value;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, value, base);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

}  // namespace

bool DumpOffsets::Add(std::string_view digits, size_t size) {
  if (has_first_) {
    const auto disagrees = [&](const Reading& reading) {
      const std::optional<uint64_t> offset = Parse(digits, reading.base);
      return !offset.has_value() || *offset - reading.first != size;
    };
    readings_.erase(
        std::remove_if(readings_.begin(), readings_.end(), disagrees),
        readings_.end());
    return !readings_.empty();
  }
  has_first_ = true;
  for (const int base : {16, 8, 10}) {
    if (base != 16 && digits.size() != kDigitsOfOd) continue;
    const std::optional<uint64_t> offset = Parse(digits, base);
    if (offset.has_value()) readings_.push_back({base, *offset});
  }
  return !readings_.empty();
}

std::optional<size_t> DumpOffsets::AddAfterRepetition(std::string_view digits,
                                                      size_t size,
                                                      size_t line_size) {
  std::vector<Reading> possible;
  uint64_t size_after = 0;
  for (const Reading& reading : readings_) {
    const std::optional<uint64_t> offset = Parse(digits, reading.base);
    if (!offset.has_value()) continue;
    const uint64_t new_size = *offset - reading.first;
    if (new_size > kMaxSize || new_size <= size ||
        (new_size - size) % line_size != 0) {
      continue;
    }
    possible.push_back(reading);
    size_after = new_size;
  }
  // od does not write hexadecimal offsets of seven digits.
  if (possible.size() > 1 && possible.front().base == 16) {
    possible.erase(possible.begin());
  }
  if (possible.size() != 1) return std::nullopt;
  readings_ = possible;
  return size_after;
}

}  // namespace tools
}  // namespace vantiro
