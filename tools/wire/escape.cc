#include "tools/wire/escape.h"

#include <algorithm>
#include <cstdint>

#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

struct Character {
  uint32_t code = 0;
  size_t size = 1;
};

// The first character of valid UTF-8.
Character First(std::string_view text) {
  const auto lead = static_cast<uint8_t>(text[0]);
  if (lead < 0x80) return {lead, 1};
  const size_t size = lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
  uint32_t code = lead & (0x7fU >> size);
  for (size_t i = 1; i < size; ++i) {
    code = code << 6 | (static_cast<uint8_t>(text[i]) & 0x3f);
  }
  return {code, size};
}

bool IsControl(uint32_t code) {
  return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0x61c ||
         code == 0x200e || code == 0x200f ||
         (code >= 0x2028 && code <= 0x202e) ||
         (code >= 0x2066 && code <= 0x2069);
}

std::string Escape(std::string_view text, bool keeps_line_feeds) {
  const bool is_plain = std::all_of(text.begin(), text.end(), [](char c) {
    return static_cast<uint8_t>(c) >= 0x20 && static_cast<uint8_t>(c) < 0x7f;
  });
  if (is_plain) return std::string(text);
  const bool is_utf8 = IsUtf8(text);
  std::string escaped;
  for (size_t at = 0; at < text.size();) {
    const bool is_byte = !is_utf8 && static_cast<uint8_t>(text[at]) >= 0x80;
    const Character c = is_byte ? Character() : First(text.substr(at));
    if (is_byte) {
      escaped += "\\x" + Hex(text.substr(at, 1));
    } else if (IsControl(c.code) && !(c.code == '\n' && keeps_line_feeds)) {
      escaped += "\\u" + FixedHex(c.code, 4).substr(2);
    } else {
      escaped += text.substr(at, c.size);
    }
    at += c.size;
  }
  return escaped;
}

}  // namespace

std::string EscapeControls(std::string_view text) {
  return Escape(text, /*keeps_line_feeds=*/false);
}

std::string EscapeControlsInLines(std::string_view text) {
  return Escape(text, /*keeps_line_feeds=*/true);
}

}  // namespace tools
}  // namespace vantiro
