// The encoding of single values, written from its rules.

#ifndef VANTIRO_TESTS_CONFORMANCE_MODEL_ENCODING_H_
#define VANTIRO_TESTS_CONFORMANCE_MODEL_ENCODING_H_

#include <cstdint>
#include <string>

#include "tests/support/types.h"

namespace vantiro {
namespace tests {

enum WireType : uint32_t {
  kVarint = 0,
  kFixed64,
  kDelimited,
  kStartGroup,
  kEndGroup,
  kFixed32
};

WireType TypeOf(Kind kind);

// The size of a value of fixed size, 0 for other kinds.
size_t FixedSize(Kind kind);

std::string Varint(uint64_t value);
std::string Tag(int number, WireType type);
std::string Delimited(int number, const std::string& content);

// What a varint means for a field of `kind`, as the bits that it holds.
uint64_t FromVarint(Kind kind, uint64_t raw);
// The encoding of a scalar or element by its bits, without a tag.
std::string Element(Kind kind, uint64_t bits);
// Whether a scalar of these bits is left out; -0.0 is.
bool IsZero(Kind kind, uint64_t bits);

bool IsUtf8(const std::string& text);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_MODEL_ENCODING_H_
