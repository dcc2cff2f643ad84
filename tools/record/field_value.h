// The value of a field of a record.

#ifndef VANTIRO_TOOLS_RECORD_FIELD_VALUE_H_
#define VANTIRO_TOOLS_RECORD_FIELD_VALUE_H_

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "tools/schema/schema.h"
#include "tools/wire/array_view.h"

namespace vantiro {
namespace tools {

struct Record;

// Scalars, a string or bytes, or messages, by the field's type; what is not of
// that type is empty. A singular field has at most one scalar or message. It is
// small, since a record has one for each of its fields.
class FieldValue {
 public:
  // An empty value.
  FieldValue() = default;
  explicit FieldValue(const FieldDescriptor& field) : field_(&field) {}
  FieldValue(FieldValue&& other) noexcept;
  FieldValue& operator=(FieldValue&& other) noexcept;
  ~FieldValue();

  const FieldDescriptor& field() const { return *field_; }

  // Bits as scalar.h describes them.
  ArrayView<const uint64_t> scalars() const;
  ArrayView<uint64_t> mutable_scalars();
  // Of a singular field: replaces the value.
  void AddScalar(uint64_t bits);
  // Space for so many further elements of a repeated field.
  void ReserveScalars(size_t count);

  const std::string& string_value() const;
  void SetString(std::string value);

  ArrayView<const Record> messages() const;
  ArrayView<Record> mutable_messages();
  // The message is valid until the next one is added.
  Record* AddMessage();

 private:
  using OwnedScalars = std::unique_ptr<std::vector<uint64_t>>;
  using OwnedString = std::unique_ptr<std::string>;
  using OwnedMessages = std::unique_ptr<std::vector<Record>>;

  const FieldDescriptor* field_ = nullptr;
  // A singular scalar, or what of the other three is not empty.
  std::variant<std::monostate, uint64_t, OwnedScalars, OwnedString,
               OwnedMessages>
      value_;
};

inline ArrayView<const uint64_t> FieldValue::scalars() const {
  if (const auto* const one = std::get_if<uint64_t>(&value_)) return {one, 1};
  const auto* const several = std::get_if<OwnedScalars>(&value_);
  if (several == nullptr) return {};
  return {(*several)->data(), (*several)->size()};
}

inline ArrayView<uint64_t> FieldValue::mutable_scalars() {
  if (auto* const one = std::get_if<uint64_t>(&value_)) return {one, 1};
  auto* const several = std::get_if<OwnedScalars>(&value_);
  if (several == nullptr) return {};
  return {(*several)->data(), (*several)->size()};
}

// The value that a field without an entry has; not for messages.
FieldValue DefaultValue(const FieldDescriptor& field);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_FIELD_VALUE_H_
