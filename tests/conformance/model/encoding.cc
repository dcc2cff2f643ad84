#include "tests/conformance/model/encoding.h"

namespace vantiro {
namespace tests {
namespace {

// One character of UTF-8 at `i`: its size, or 0 if there is none.
size_t CharacterSize(const std::string& text, size_t i) {
  const auto byte = [&text](size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  };
  const unsigned first = byte(i);
  const unsigned second = byte(i + 1);
  const auto continues = [](unsigned c) { return (c & 0xc0) == 0x80; };
  if (first < 0x80) return 1;
  if (first >= 0xc2 && first < 0xe0 && continues(second)) return 2;
  if (first >= 0xe0 && first < 0xf0 && continues(second) &&
      continues(byte(i + 2))) {
    const bool overlong = first == 0xe0 && second < 0xa0;
    const bool surrogate = first == 0xed && second >= 0xa0;
    return overlong || surrogate ? 0 : 3;
  }
  if (first >= 0xf0 && first < 0xf5 && continues(second) &&
      continues(byte(i + 2)) && continues(byte(i + 3))) {
    const bool overlong = first == 0xf0 && second < 0x90;
    const bool too_high = first == 0xf4 && second >= 0x90;
    return overlong || too_high ? 0 : 4;
  }
  return 0;
}

}  // namespace

WireType TypeOf(Kind kind) {
  switch (kind) {
    case Kind::FLOAT:
      return kFixed32;
    case Kind::STRING:
    case Kind::BYTES:
    case Kind::MESSAGE:
      return kDelimited;
    default:
      return kVarint;
  }
}

std::string Varint(uint64_t value) {
  std::string bytes;
  for (; value >= 0x80; value >>= 7) {
    bytes += static_cast<char>(value | 0x80);
  }
  return bytes + static_cast<char>(value);
}

std::string Tag(int number, WireType type) {
  return Varint(static_cast<uint64_t>(number) << 3 | type);
}

std::string Delimited(int number, const std::string& content) {
  return Tag(number, kDelimited) + Varint(content.size()) + content;
}

uint64_t FromVarint(Kind kind, uint64_t raw) {
  const uint64_t low = raw & 0xffffffff;
  switch (kind) {
    case Kind::BOOL:
      return raw != 0 ? 1 : 0;
    case Kind::SINT32:
      return ((low >> 1) ^ ((low & 1) != 0 ? 0xffffffff : 0)) & 0xffffffff;
    case Kind::SINT64:
      return (raw >> 1) ^ ((raw & 1) != 0 ? ~uint64_t{0} : 0);
    case Kind::UINT64:
    case Kind::INT64:
      return raw;
    default:
      return low;
  }
}

std::string Element(Kind kind, uint64_t bits) {
  const bool negative32 = (bits & 0x80000000) != 0;
  switch (kind) {
    case Kind::FLOAT: {
      std::string bytes;
      for (int i = 0; i < 4; ++i) bytes += static_cast<char>(bits >> (8 * i));
      return bytes;
    }
    case Kind::INT32:
    case Kind::ENUM:
      return Varint(negative32 ? bits | 0xffffffff00000000 : bits);
    case Kind::SINT32:
      return Varint((bits << 1 & 0xffffffff) ^ (negative32 ? 0xffffffff : 0));
    case Kind::SINT64:
      return Varint(bits << 1 ^ (bits >> 63 != 0 ? ~uint64_t{0} : 0));
    default:
      return Varint(bits);
  }
}

bool IsZero(Kind kind, uint64_t bits) {
  return kind == Kind::FLOAT ? (bits & 0x7fffffff) == 0 : bits == 0;
}

bool IsUtf8(const std::string& text) {
  for (size_t i = 0; i < text.size();) {
    const size_t size = CharacterSize(text, i);
    if (size == 0) return false;
    i += size;
  }
  return true;
}

}  // namespace tests
}  // namespace vantiro
