#include "tests/conformance/model/encoding.h"

namespace vantiro {
namespace tests {
namespace {

// The size of the UTF-8 character at `at`, or 0 if there is none.
size_t CharacterSize(const std::string& text, size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  const size_t size = first < 0x80            ? 1
                      : first >> 5 == 0b110   ? 2
                      : first >> 4 == 0b1110  ? 3
                      : first >> 3 == 0b11110 ? 4
                                              : 0;
  if (size < 2) return size;
  if (size > text.size() - at) return 0;
  uint32_t character = first & (0x7f >> size);
  for (size_t i = 1; i < size; ++i) {
    const auto next = static_cast<unsigned char>(text[at + i]);
    if (next >> 6 != 0b10) return 0;
    character = character << 6 | (next & 0x3f);
  }
  constexpr uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool is_surrogate = character >= 0xd800 && character < 0xe000;
  const bool is_overlong = character < kSmallest[size];
  return is_surrogate || is_overlong || character > 0x10ffff ? 0 : size;
}

}  // namespace

WireType TypeOf(Kind kind) {
  switch (kind) {
    case Kind::FLOAT:
    case Kind::FIXED32:
    case Kind::SFIXED32:
      return kFixed32;
    case Kind::DOUBLE:
    case Kind::FIXED64:
    case Kind::SFIXED64:
      return kFixed64;
    case Kind::STRING:
    case Kind::BYTES:
    case Kind::MESSAGE:
      return kDelimited;
    default:
      return kVarint;
  }
}

size_t FixedSize(Kind kind) {
  const WireType type = TypeOf(kind);
  return type == kFixed32 ? 4 : type == kFixed64 ? 8 : 0;
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
  if (const size_t size = FixedSize(kind)) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i) bytes += static_cast<char>(bits >> 8 * i);
    return bytes;
  }
  switch (kind) {
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
  if (kind == Kind::FLOAT) return (bits & 0x7fffffff) == 0;
  return kind == Kind::DOUBLE ? bits << 1 == 0 : bits == 0;
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
