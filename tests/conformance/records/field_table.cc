#include "tests/conformance/records/field_table.h"

#include <cstring>
#include <iterator>
#include <type_traits>

#include "all_units.h"
#include "tests/support/merge.h"

namespace vantiro {
namespace tests {
namespace {

template <typename T>
Value NumberOf(T value, Kind kind) {
  return {static_cast<uint64_t>(value), "", kind};
}
Value ToValue(uint32_t value) { return NumberOf(value, Kind::UINT32); }
Value ToValue(int32_t value) { return NumberOf(value, Kind::INT32); }
Value ToValue(bool value) { return NumberOf(value, Kind::BOOL); }
Value ToValue(uint64_t value) { return NumberOf(value, Kind::UINT64); }
Value ToValue(int64_t value) { return NumberOf(value, Kind::INT64); }
template <typename Enum, typename = std::enable_if_t<std::is_enum<Enum>::value>>
Value ToValue(Enum value) {
  return NumberOf(value, Kind::ENUM);
}
Value ToValue(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return NumberOf(bits, Kind::FLOAT);
}
Value ToValue(const std::string& value) { return {0, value, Kind::STRING}; }
Value ToValue(const MessageLite& value) {
  return {0, value.SerializeAsString(), Kind::MESSAGE, value.GetTypeName()};
}

// Becomes whatever number a setter takes.
struct Argument {
  template <typename T>
  operator T() const {  // NOLINT(google-explicit-constructor)
    return static_cast<T>(value.number);
  }
  operator float() const {  // NOLINT(google-explicit-constructor)
    const auto bits = static_cast<uint32_t>(value.number);
    float result;
    std::memcpy(&result, &bits, sizeof(result));
    return result;
  }
  const Value& value;
};

// An entry of the table. `set`, `get` and `size` are expressions in `m`, the
// message as its own class.
#define FIELD(C, full_name, number, name, kind, type, is_repeated, set, get, \
              size_of)                                                       \
  {full_name,                                                                \
   #name,                                                                    \
   type,                                                                     \
   number,                                                                   \
   Kind::kind,                                                               \
   is_repeated,                                                              \
   [](MessageLite* message, const Value& value) {                            \
     auto* const m = static_cast<C*>(message);                               \
     set;                                                                    \
   },                                                                        \
   [](const MessageLite& message, [[maybe_unused]] int index) {              \
     const auto& m = static_cast<const C&>(message);                         \
     return ToValue(get);                                                    \
   },                                                                        \
   [](const MessageLite& message) -> int {                                   \
     [[maybe_unused]] const auto& m = static_cast<const C&>(message);        \
     return size_of;                                                         \
   },                                                                        \
   [](MessageLite* message) { static_cast<C*>(message)->clear_##name(); }},

const Field kFields[] = {
#define VANTIRO_SCALAR(C, full_name, number, name, kind)  \
  FIELD(C, full_name, number, name, kind, nullptr, false, \
        m->set_##name(Argument{value}), m.name(), -1)
#define VANTIRO_TEXT(C, full_name, number, name, kind)    \
  FIELD(C, full_name, number, name, kind, nullptr, false, \
        m->set_##name(value.bytes), m.name(), -1)
#define VANTIRO_LIST(C, full_name, number, name, kind)   \
  FIELD(C, full_name, number, name, kind, nullptr, true, \
        m->add_##name(Argument{value}), m.name(index), m.name##_size())
#define VANTIRO_SUB(C, full_name, number, name, type)           \
  FIELD(C, full_name, number, name, MESSAGE, type, false,       \
        MergeBytes(value.bytes, m->mutable_##name()), m.name(), \
        m.has_##name())
#define VANTIRO_SUB_LIST(C, full_name, number, name, type)       \
  FIELD(C, full_name, number, name, MESSAGE, type, true,         \
        MergeBytes(value.bytes, m->add_##name()), m.name(index), \
        m.name##_size())
#include "all_types.inc"
};

}  // namespace

const std::vector<Field>& AllFields() {
  static const auto* const fields =
      new std::vector<Field>(std::begin(kFields), std::end(kFields));
  return *fields;
}

}  // namespace tests
}  // namespace vantiro
