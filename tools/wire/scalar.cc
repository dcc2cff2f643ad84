#include "tools/wire/scalar.h"

#include <google/protobuf/stubs/common.h>

#include <cstring>

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;

uint64_t Low32(uint64_t bits) { return static_cast<uint32_t>(bits); }

int32_t AsInt32(uint64_t bits) { return static_cast<int32_t>(bits); }

}  // namespace

uint64_t FromVarint(const FieldDescriptor& field, uint64_t varint) {
  switch (field.type()) {
    case FieldDescriptor::TYPE_BOOL:
      return varint != 0 ? 1 : 0;
    case FieldDescriptor::TYPE_SINT32:
      return Low32(static_cast<uint32_t>(
          WireFormatLite::ZigZagDecode32(static_cast<uint32_t>(varint))));
    case FieldDescriptor::TYPE_SINT64:
      return static_cast<uint64_t>(WireFormatLite::ZigZagDecode64(varint));
    case FieldDescriptor::TYPE_UINT64:
    case FieldDescriptor::TYPE_INT64:
      return varint;
    default:
      return Low32(varint);
  }
}

uint64_t ToVarint(const FieldDescriptor& field, uint64_t bits) {
  switch (field.type()) {
    case FieldDescriptor::TYPE_SINT32:
      return WireFormatLite::ZigZagEncode32(AsInt32(bits));
    case FieldDescriptor::TYPE_SINT64:
      return WireFormatLite::ZigZagEncode64(static_cast<int64_t>(bits));
    case FieldDescriptor::TYPE_INT32:
    case FieldDescriptor::TYPE_ENUM:
      // A negative number is extended to 64 bits.
      return static_cast<uint64_t>(int64_t{AsInt32(bits)});
    default:
      return bits;
  }
}

float ToFloat(uint64_t bits) {
  const auto low = static_cast<uint32_t>(bits);
  float value;
  std::memcpy(&value, &low, sizeof(value));
  return value;
}

uint64_t FromFloat(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits;
}

const EnumValueDescriptor* DeclaredValue(const FieldDescriptor& field,
                                         uint64_t bits) {
  return field.enum_type()->FindValueByNumber(AsInt32(bits));
}

bool IsUtf8(std::string_view text) {
  return google::protobuf::internal::IsStructurallyValidUTF8(
      text.data(), static_cast<int>(text.size()));
}

}  // namespace tools
}  // namespace vantiro
