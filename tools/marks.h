// What is peculiar in how a field or an element stands in the bytes.

#ifndef VANTIRO_TOOLS_MARKS_H_
#define VANTIRO_TOOLS_MARKS_H_

#include <cstdint>
#include <string>
#include <vector>

namespace vantiro {
namespace inspection {

enum class Mark : uint16_t {
  kUnknown = 1 << 0,          // a field that the type does not know
  kOverlongTag = 1 << 1,      // a tag in more bytes than it needs
  kOverlongLength = 1 << 2,   // a length in more bytes than it needs
  kOverlongValue = 1 << 3,    // a varint in more bytes than it needs
  kUnusualValue = 1 << 4,     // a varint that is written again as another one
  kUnpacked = 1 << 5,         // an element of a packed list by itself
  kMisreadBlock = 1 << 6,     // a packed block that is read as an element
  kSplitList = 1 << 7,        // a further block of a list that has elements
  kOutOfOrder = 1 << 8,       // behind a higher number, or an unknown field
  kDuplicate = 1 << 9,        // a singular field that was there before
  kUndeclaredEnum = 1 << 10,  // a number that the enum does not declare
  kNegativeZero = 1 << 11,    // a float of -0.0
  kNan = 1 << 12,             // a float that is not a number
  kWrittenZero = 1 << 13,     // a zero, a text or a block that the library
                              // would not write, since it is empty
};

class Marks {
 public:
  void Add(Mark mark) { bits_ |= static_cast<uint16_t>(mark); }
  void Add(Marks marks) { bits_ |= marks.bits_; }
  void Remove(Marks marks) {
    bits_ = static_cast<uint16_t>(bits_ & ~marks.bits_);
  }
  bool Has(Mark mark) const {
    return (bits_ & static_cast<uint16_t>(mark)) != 0;
  }
  bool empty() const { return bits_ == 0; }

  // Whether the library writes what is so marked in another way.
  bool IsCanonical() const;

  // The marks in words, in the order of declaration.
  std::vector<std::string> Names() const;

 private:
  uint16_t bits_ = 0;
};

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_MARKS_H_
