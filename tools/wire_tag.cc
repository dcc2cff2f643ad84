#include "tools/wire_tag.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format.h>
#include <google/protobuf/wire_format_lite.h>

#include <cstdint>

namespace vantiro {
namespace inspection {

using google::protobuf::FieldDescriptor;
using google::protobuf::internal::WireFormat;
using google::protobuf::internal::WireFormatLite;

std::string WireTag(const FieldDescriptor& field) {
  constexpr char kDigits[] = "0123456789abcdef";
  uint8_t bytes[5];
  const uint8_t* end =
      google::protobuf::io::CodedOutputStream::WriteVarint32ToArray(
          WireFormat::MakeTag(&field), bytes);
  std::string hex;
  for (const uint8_t* byte = bytes; byte != end; ++byte) {
    if (!hex.empty()) hex += ' ';
    hex += kDigits[*byte >> 4];
    hex += kDigits[*byte & 15];
  }
  return hex;
}

std::string WireTypeName(const FieldDescriptor& field) {
  switch (WireFormatLite::GetTagWireType(WireFormat::MakeTag(&field))) {
    case WireFormatLite::WIRETYPE_VARINT:
      return "varint";
    case WireFormatLite::WIRETYPE_FIXED64:
      return "64 bits";
    case WireFormatLite::WIRETYPE_FIXED32:
      return "32 bits";
    default:
      return "length";
  }
}

}  // namespace inspection
}  // namespace vantiro
