#include "tools/split.h"

#include <google/protobuf/io/coded_stream.h>

#include <string>

namespace vantiro {
namespace inspection {

SplitStream Split(std::string_view bytes) {
  SplitStream split;
  size_t offset = 0;
  while (offset < bytes.size()) {
    const std::string_view rest = bytes.substr(offset);
    google::protobuf::io::CodedInputStream stream(
        reinterpret_cast<const uint8_t*>(rest.data()),
        static_cast<int>(rest.size()));
    uint64_t size;
    if (!stream.ReadVarint64(&size)) {
      split.fault = Fault{offset, "", "this is no length: no varint"};
      break;
    }
    const auto begin = offset + static_cast<size_t>(stream.CurrentPosition());
    const size_t left = bytes.size() - begin;
    if (size > left) {
      split.fault = Fault{offset, "",
                          "the record needs " + std::to_string(size) +
                              " bytes, " + std::to_string(left) + " left"};
      break;
    }
    split.records.push_back({begin, static_cast<size_t>(size)});
    offset = begin + static_cast<size_t>(size);
  }
  return split;
}

}  // namespace inspection
}  // namespace vantiro
