#include "tools/wire/delimited.h"

#include <google/protobuf/io/coded_stream.h>

#include <string>

namespace vantiro {
namespace tools {

DelimitedStream ReadDelimited(std::string_view bytes) {
  DelimitedStream stream;
  size_t offset = 0;
  while (offset < bytes.size()) {
    const std::string_view rest = bytes.substr(offset);
    google::protobuf::io::CodedInputStream input(
        reinterpret_cast<const uint8_t*>(rest.data()),
        static_cast<int>(rest.size()));
    uint64_t size;
    if (!input.ReadVarint64(&size)) {
      stream.fault = Fault{offset, "", "the length is not a valid varint"};
      break;
    }
    const auto begin = offset + static_cast<size_t>(input.CurrentPosition());
    const size_t left = bytes.size() - begin;
    if (size > left) {
      stream.fault = Fault{offset, "",
                           "the record needs " + ByteCount(size) + ", " +
                               std::to_string(left) + " left"};
      break;
    }
    stream.records.push_back({begin, static_cast<size_t>(size)});
    offset = begin + static_cast<size_t>(size);
  }
  return stream;
}

}  // namespace tools
}  // namespace vantiro
