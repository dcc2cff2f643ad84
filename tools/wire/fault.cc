#include "tools/wire/fault.h"

#include <sstream>

namespace vantiro {
namespace tools {

std::string Fault::Text() const {
  std::ostringstream text;
  text << "offset 0x" << std::hex << offset << std::dec << " (" << offset
       << ')';
  if (!path.empty()) text << ", in " << path;
  text << ": " << what;
  return text.str();
}

std::string ByteCount(size_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

}  // namespace tools
}  // namespace vantiro
