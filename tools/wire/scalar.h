// The scalar values of fields: kinds, bits and varints.
//
// The bits of a value are what the field holds, before any encoding: 32 bits
// for a float and the 32-bit kinds, sign included.

#ifndef VANTIRO_TOOLS_WIRE_SCALAR_H_
#define VANTIRO_TOOLS_WIRE_SCALAR_H_

#include <cstdint>
#include <string_view>

#include "tools/schema/schema.h"
#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {

// These are called for each value, and are short.

inline bool IsFloat(const FieldDescriptor& field) {
  return field.type() == FieldDescriptor::TYPE_FLOAT;
}
// Neither a string, nor bytes, nor a message.
inline bool IsScalar(const FieldDescriptor& field) {
  return field.cpp_type() != FieldDescriptor::CPPTYPE_STRING &&
         field.cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE;
}

// Whether the class reads a value of that wire type into the field.
inline bool AcceptsWireType(const FieldDescriptor& field, WireType type) {
  using google::protobuf::internal::WireFormatLite;
  return type == WireFormatLite::WireTypeForFieldType(
                     static_cast<WireFormatLite::FieldType>(field.type())) ||
         (type == WireFormatLite::WIRETYPE_LENGTH_DELIMITED &&
          field.is_packed());
}

// The bits that a field holds after reading a varint; not for a float.
uint64_t FromVarint(const FieldDescriptor& field, uint64_t varint);
// The varint that the library writes for these bits.
uint64_t ToVarint(const FieldDescriptor& field, uint64_t bits);

// Whether a singular field of these bits is not written: 0 or -0.0.
inline bool IsZero(const FieldDescriptor& field, uint64_t bits) {
  return bits == 0 || (bits == 0x80000000 && IsFloat(field));
}

// These take and return the bits of a float.
inline bool IsNan(uint64_t bits) { return (bits & 0x7fffffff) > 0x7f800000; }
float ToFloat(uint64_t bits);
uint64_t FromFloat(float value);

// The declared value of an enum field's bits; null if there is none.
const EnumValueDescriptor* DeclaredValue(const FieldDescriptor& field,
                                         uint64_t bits);

bool IsUtf8(std::string_view text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_SCALAR_H_
