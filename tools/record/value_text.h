// Values of fields as text, as the text format has them.

#ifndef VANTIRO_TOOLS_RECORD_VALUE_TEXT_H_
#define VANTIRO_TOOLS_RECORD_VALUE_TEXT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/record/path.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {

// The bits of the NaN that has no bits in text and JSON.
constexpr uint32_t kUsualNan = 0x7fc00000;

// "-12", "0.1", "inf", "true", "OPERATION_PREVIEW". A float has as many digits
// as identify it; a NaN other than the usual one has its bits, as in
// "nan(0xffc00001)"; an undeclared enum number is a number.
std::string ScalarText(const FieldDescriptor& field, uint64_t bits);
void AppendScalarText(const FieldDescriptor& field, uint64_t bits,
                      std::string* text);
// The inverse. False if the field cannot hold what `text` says.
bool ParseScalar(const FieldDescriptor& field, std::string_view text,
                 uint64_t* bits);

// A scalar as above, a repeated one as "[1, 2]", a string in quotes, and bytes
// in quotes with \x escapes. Not for messages.
std::string ValueText(const FieldValue& value);
void AppendValueText(const FieldValue& value, std::string* text);
// The same for what a path leads to.
std::string SelectedText(const Selected& selected);

// A quoted string with C escapes for characters that do not print.
std::string Quoted(std::string_view text);
// A quoted string in which every byte is a \x escape.
std::string QuotedHex(std::string_view bytes);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_VALUE_TEXT_H_
