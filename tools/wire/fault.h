// Where and why bytes cannot be read.

#ifndef VANTIRO_TOOLS_WIRE_FAULT_H_
#define VANTIRO_TOOLS_WIRE_FAULT_H_

#include <cstddef>
#include <string>

namespace vantiro {
namespace tools {

// A part of the bytes of a record.
struct Span {
  size_t offset = 0;
  size_t size = 0;

  size_t end() const { return offset + size; }
};

struct Fault {
  size_t offset;
  // The field that was being read; empty between the fields of a record.
  std::string path;
  std::string what;

  // "offset 0x1a3 (419), in a.b[1].c: float needs 4 bytes, 2 left"
  std::string Text() const;
};

// "1 byte", "12 bytes".
std::string ByteCount(size_t count);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_FAULT_H_
