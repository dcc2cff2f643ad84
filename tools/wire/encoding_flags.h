// How the encoding of a field or an element differs from the library's own, and
// which values in it are unusual.

#ifndef VANTIRO_TOOLS_WIRE_ENCODING_FLAGS_H_
#define VANTIRO_TOOLS_WIRE_ENCODING_FLAGS_H_

#include <cstdint>
#include <string>
#include <vector>

namespace vantiro {
namespace tools {

enum class EncodingFlag : uint16_t {
  kUnknown = 1 << 0,             // a field that the type does not declare
  kOverlongTag = 1 << 1,         // a tag in more bytes than it needs
  kOverlongLength = 1 << 2,      // a length in more bytes than it needs
  kOverlongValue = 1 << 3,       // a varint in more bytes than it needs
  kOutOfRangeValue = 1 << 4,     // a varint that the field's type truncates
  kUnpacked = 1 << 5,            // an unpacked element of a packed field
  kPackedRunAsElement = 1 << 6,  // a packed run that is read as one element
  kFurtherPackedRun = 1 << 7,    // not the first run or element of its field
  kOutOfOrder = 1 << 8,       // after a higher field number or an unknown field
  kDuplicate = 1 << 9,        // a further occurrence of a singular field
  kUndeclaredEnum = 1 << 10,  // a number that the enum does not declare
  kNegativeZero = 1 << 11,    // a float of -0.0
  kNan = 1 << 12,             // a float that is not a number
  kWrittenDefault = 1 << 13,  // a default value or an empty packed run, which
                              // the library does not write
};

class EncodingFlags {
 public:
  void Add(EncodingFlag flag) { bits_ |= static_cast<uint16_t>(flag); }
  void Add(EncodingFlags flags) { bits_ |= flags.bits_; }
  void Remove(EncodingFlags flags) {
    bits_ = static_cast<uint16_t>(bits_ & ~flags.bits_);
  }
  bool Has(EncodingFlag flag) const {
    return (bits_ & static_cast<uint16_t>(flag)) != 0;
  }
  bool empty() const { return bits_ == 0; }

  // The flags with which the library writes the same bytes again, and the
  // others.
  EncodingFlags Canonical() const;
  EncodingFlags NotCanonical() const;
  bool IsCanonical() const { return NotCanonical().empty(); }

  // What each flag is called in the program's output, in the order of
  // declaration.
  std::vector<std::string> Names() const;

 private:
  uint16_t bits_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_ENCODING_FLAGS_H_
