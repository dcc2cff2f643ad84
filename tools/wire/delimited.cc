#include "tools/wire/delimited.h"

#include <string>

#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {

DelimitedStream ReadDelimited(std::string_view bytes) {
  DelimitedStream stream;
  WireReader reader(bytes);
  while (!reader.AtEnd()) {
    const size_t offset = reader.offset();
    Varint size;
    if (!reader.ReadVarint(&size) || size.is_truncated) {
      stream.fault = Fault{offset, "", "the length is not a valid varint"};
      break;
    }
    const size_t begin = reader.offset();
    if (!reader.Skip(size.value)) {
      stream.fault = Fault{offset, "",
                           "the record needs " + ByteCount(size.value) + ", " +
                               std::to_string(reader.left()) + " left"};
      break;
    }
    stream.records.push_back({begin, static_cast<size_t>(size.value)});
  }
  return stream;
}

}  // namespace tools
}  // namespace vantiro
