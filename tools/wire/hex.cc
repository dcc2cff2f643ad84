#include "tools/wire/hex.h"

#include <charconv>

namespace vantiro {
namespace tools {
namespace {

constexpr char kDigits[] = "0123456789abcdef";

}  // namespace

std::string Hex(std::string_view bytes) {
  std::string hex;
  for (const char c : bytes) {
    hex += kDigits[static_cast<uint8_t>(c) >> 4];
    hex += kDigits[static_cast<uint8_t>(c) & 15];
  }
  return hex;
}

std::string SpacedHex(std::string_view bytes) {
  std::string hex;
  for (const char c : bytes) {
    if (!hex.empty()) hex += ' ';
    hex += Hex({&c, 1});
  }
  return hex;
}

bool ParseHex(std::string_view text, std::string* bytes) {
  if (text.size() % 2 != 0) return false;
  for (const char* at = text.data(); at != text.data() + text.size(); at += 2) {
    uint8_t byte;
    const auto result = std::from_chars(at, at + 2, byte, 16);
    if (result.ec != std::errc() || result.ptr != at + 2) return false;
    *bytes += static_cast<char>(byte);
  }
  return true;
}

std::string FixedHex(uint64_t value, size_t digits) {
  std::string text(digits, '0');
  for (size_t i = digits; i-- > 0; value >>= 4) text[i] = kDigits[value & 15];
  return "0x" + text;
}

}  // namespace tools
}  // namespace vantiro
