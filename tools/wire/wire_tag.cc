#include "tools/wire/wire_tag.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format.h>
#include <google/protobuf/wire_format_lite.h>

#include <cstdint>

#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {

using google::protobuf::FieldDescriptor;
using google::protobuf::internal::WireFormat;
using google::protobuf::internal::WireFormatLite;

std::string WireTag(const FieldDescriptor& field) {
  char bytes[5];
  auto* const begin = reinterpret_cast<uint8_t*>(bytes);
  const uint8_t* const end =
      google::protobuf::io::CodedOutputStream::WriteVarint32ToArray(
          WireFormat::MakeTag(&field), begin);
  return SpacedHex({bytes, static_cast<size_t>(end - begin)});
}

std::string WireTypeName(const FieldDescriptor& field) {
  static constexpr const char* kNames[] = {"varint",           "fixed64",
                                           "length-delimited", "start-group",
                                           "end-group",        "fixed32"};
  return kNames[WireFormatLite::GetTagWireType(WireFormat::MakeTag(&field))];
}

}  // namespace tools
}  // namespace vantiro
