#include "tools/formats/unknown_value.h"

#include <charconv>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

std::string WhyNotUnknown(const Descriptor* type, uint64_t number,
                          WireType wire_type) {
  if (number < 1 || number > FieldDescriptor::kMaxNumber) {
    return "invalid field number " + std::to_string(number);
  }
  const FieldDescriptor* const field =
      type == nullptr ? nullptr
                      : type->FindFieldByNumber(static_cast<int>(number));
  if (field == nullptr || !AcceptsWireType(*field, wire_type)) return "";
  return "field " + std::to_string(number) + " is not unknown: its name is " +
         field->name();
}

bool ParseUnsigned(std::string_view text, uint64_t* value) {
  const bool is_hex = text.substr(0, 2) == "0x";
  if (is_hex) text.remove_prefix(2);
  const char* const end = text.data() + text.size();
  const auto result =
      std::from_chars(text.data(), end, *value, is_hex ? 16 : 10);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace tools
}  // namespace vantiro
