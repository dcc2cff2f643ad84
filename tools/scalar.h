// Scalars of all kinds as bits: what varints mean, what they are written as,
// and how a person writes them.

#ifndef VANTIRO_TOOLS_SCALAR_H_
#define VANTIRO_TOOLS_SCALAR_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/record_tree.h"
#include "tools/schema.h"

namespace vantiro {
namespace inspection {

// Whether the class reads a value of that wire type into the field.
bool AcceptsWireType(const FieldDescriptor& field, WireType type);

// What a field holds of a varint; never for a float.
uint64_t FromVarint(const FieldDescriptor& field, uint64_t varint);
// The varint that the library writes for what a field holds.
uint64_t ToVarint(const FieldDescriptor& field, uint64_t bits);

// Whether a singular field of these bits is not written: zero, and -0.0.
bool IsZero(const FieldDescriptor& field, uint64_t bits);

bool IsFloat(const FieldDescriptor& field);
bool IsScalar(const FieldDescriptor& field);
// Of a float's bits.
bool IsNan(uint64_t bits);
float ToFloat(uint64_t bits);
uint64_t FromFloat(float value);

// The declared value of an enum field's bits; null if there is none.
const EnumValueDescriptor* DeclaredValue(const FieldDescriptor& field,
                                         uint64_t bits);

// "-12", "0.1", "inf", "true", "OPERATION_PREVIEW": a float has the digits that
// it needs to come back, a NaN other than the usual one its bits as in
// "nan(0xffc00001)", and an enum its number where that is not declared.
std::string ScalarText(const FieldDescriptor& field, uint64_t bits);
// The inverse. False if `text` is nothing that the field can hold.
bool ParseScalar(const FieldDescriptor& field, std::string_view text,
                 uint64_t* bits);

// "field_3", or the number of a field that the type does not know.
std::string NameOf(const Node& node);

// "0x0000002a": so many hexadecimal digits.
std::string FixedHex(uint64_t value, size_t digits);
// Lower-case hexadecimal without spaces.
std::string Hex(std::string_view bytes);
// The inverse: appends to `*bytes`. False if `text` is anything else.
bool ParseHex(std::string_view text, std::string* bytes);
// A quoted string with C escapes for what does not print.
std::string Quoted(std::string_view text);
// A quoted string in which every byte is a \x escape.
std::string QuotedHex(std::string_view bytes);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SCALAR_H_
