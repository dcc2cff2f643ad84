#include "tools/record/field_value.h"

#include <algorithm>
#include <utility>

#include "tools/record/record.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

// The object of type Owner in `*value`, which is made if there is none.
template <typename Owner, typename Variant>
typename Owner::element_type& Made(Variant* value) {
  if (!std::holds_alternative<Owner>(*value)) {
    *value = std::make_unique<typename Owner::element_type>();
  }
  return *std::get<Owner>(*value);
}

}  // namespace

void FieldValue::AddScalar(uint64_t bits) {
  if (field_->is_repeated()) {
    Made<OwnedScalars>(&value_).push_back(bits);
  } else {
    value_ = bits;
  }
}

void FieldValue::ReserveScalars(size_t count) {
  auto& scalars = Made<OwnedScalars>(&value_);
  const size_t needed = scalars.size() + count;
  // Several runs double the space, as additions do.
  if (needed > scalars.capacity()) {
    scalars.reserve(std::max(needed, scalars.size() * 2));
  }
}

const std::string& FieldValue::string_value() const {
  static const auto* const empty = new std::string();
  const auto* const value = std::get_if<OwnedString>(&value_);
  return value == nullptr ? *empty : **value;
}

void FieldValue::SetString(std::string value) {
  Made<OwnedString>(&value_) = std::move(value);
}

Record* FieldValue::AddMessage() {
  return &Made<OwnedMessages>(&value_).emplace_back(*field_->message_type());
}

FieldValue DefaultValue(const FieldDescriptor& field) {
  FieldValue value(field);
  if (IsScalar(field) && !field.is_repeated()) value.AddScalar(0);
  return value;
}

}  // namespace tools
}  // namespace vantiro
