#include "tools/record/field_value.h"

#include <algorithm>
#include <utility>

#include "tools/record/record.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using OwnedScalars = std::unique_ptr<std::vector<uint64_t>>;
using OwnedString = std::unique_ptr<std::string>;
using OwnedMessages = std::unique_ptr<std::vector<Record>>;

// The object of type Owner in `*value`, which is made if there is none.
template <typename Owner, typename Variant>
typename Owner::element_type& Made(Variant* value) {
  if (!std::holds_alternative<Owner>(*value)) {
    *value = std::make_unique<typename Owner::element_type>();
  }
  return *std::get<Owner>(*value);
}

}  // namespace

FieldValue::FieldValue() = default;
FieldValue::FieldValue(const FieldDescriptor& field) : field_(&field) {}
FieldValue::FieldValue(FieldValue&& other) noexcept = default;
FieldValue& FieldValue::operator=(FieldValue&& other) noexcept = default;
FieldValue::~FieldValue() = default;

ArrayView<const uint64_t> FieldValue::scalars() const {
  if (const auto* const one = std::get_if<uint64_t>(&value_)) return {one, 1};
  const auto* const several = std::get_if<OwnedScalars>(&value_);
  if (several == nullptr) return {};
  return {(*several)->data(), (*several)->size()};
}

ArrayView<uint64_t> FieldValue::mutable_scalars() {
  const ArrayView<const uint64_t> view = scalars();
  return {const_cast<uint64_t*>(view.begin()), view.size()};
}

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

ArrayView<const Record> FieldValue::messages() const {
  const auto* const messages = std::get_if<OwnedMessages>(&value_);
  if (messages == nullptr) return {};
  return {(*messages)->data(), (*messages)->size()};
}

ArrayView<Record> FieldValue::mutable_messages() {
  const ArrayView<const Record> view = messages();
  return {const_cast<Record*>(view.begin()), view.size()};
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
