#include "tests/support/types.h"

#include <cstring>
#include <type_traits>

#include "all_types.h"

// Deprecated fields are tested like all others.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace vantiro {
namespace tests {
namespace {

template <typename T>
Type MakeType(const char* name) {
  return {
      name,
      [](Arena* arena) -> MessageLite* {
        return arena == nullptr ? T::default_instance().New()
                                : T::default_instance().New(arena);
      },
      [](const MessageLite& from) -> MessageLite* {
        return new T(static_cast<const T&>(from));
      },
      []() -> const MessageLite& { return T::default_instance(); },
      [](MessageLite* to, const MessageLite& from) {
        static_cast<T*>(to)->CopyFrom(static_cast<const T&>(from));
      },
      [](MessageLite* to, const MessageLite& from) {
        static_cast<T*>(to)->MergeFrom(static_cast<const T&>(from));
      },
      [](MessageLite* a, MessageLite* b) {
        static_cast<T*>(a)->Swap(static_cast<T*>(b));
      },
      [](MessageLite* message, CodedInputStream* input) {
        return static_cast<T*>(message)->MergePartialFromCodedStream(input);
      },
      [](const MessageLite& message, CodedOutputStream* output) {
        static_cast<const T&>(message).SerializeWithCachedSizes(output);
      },
      {},
  };
}

template <typename T>
Value ToValue(T number, Kind kind) {
  return {static_cast<uint64_t>(number), "", kind};
}
Value ToValue(uint32_t value) { return ToValue(value, Kind::UINT32); }
Value ToValue(int32_t value) { return ToValue(value, Kind::INT32); }
Value ToValue(bool value) { return ToValue(value, Kind::BOOL); }
Value ToValue(uint64_t value) { return ToValue(value, Kind::UINT64); }
Value ToValue(int64_t value) { return ToValue(value, Kind::INT64); }
template <typename Enum, typename = std::enable_if_t<std::is_enum<Enum>::value>>
Value ToValue(Enum value) {
  return ToValue(value, Kind::ENUM);
}
Value ToValue(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return ToValue(bits, Kind::FLOAT);
}
Value ToValue(double value) {
  uint64_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return ToValue(bits, Kind::DOUBLE);
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
  operator double() const {  // NOLINT(google-explicit-constructor)
    double result;
    std::memcpy(&result, &value.number, sizeof(result));
    return result;
  }
  const Value& value;
};

// `set`, `get` and `count` are expressions in `m`, the message as its class.
#define VANTIRO_FIELD(C, owner, number, name, kind, is_repeated, set, get, \
                      count, release, set_allocated, type)                 \
  {owner,                                                                  \
   #name,                                                                  \
   number,                                                                 \
   Kind::kind,                                                             \
   is_repeated,                                                            \
   true,                                                                   \
   [](MessageLite* message, const Value& value) {                          \
     auto* const m = static_cast<C*>(message);                             \
     set;                                                                  \
   },                                                                      \
   [](const MessageLite& message, [[maybe_unused]] int index) {            \
     const auto& m = static_cast<const C&>(message);                       \
     return ToValue(get);                                                  \
   },                                                                      \
   [](const MessageLite& message) -> int {                                 \
     [[maybe_unused]] const auto& m = static_cast<const C&>(message);      \
     return count;                                                         \
   },                                                                      \
   [](MessageLite* message) { static_cast<C*>(message)->clear_##name(); }, \
   release,                                                                \
   set_allocated,                                                          \
   type},

#define VANTIRO_SCALAR_FIELD(C, owner, number, name, kind, type)       \
  VANTIRO_FIELD(C, owner, number, name, kind, false,                   \
                m->set_##name(Argument{value}), m.name(), -1, nullptr, \
                nullptr, type)
#define VANTIRO_STRING_FIELD(C, owner, number, name, kind, type)            \
  VANTIRO_FIELD(C, owner, number, name, kind, false,                        \
                m->set_##name(value.bytes), m.name(), -1, nullptr, nullptr, \
                type)
#define VANTIRO_REPEATED_FIELD(C, owner, number, name, kind, type) \
  VANTIRO_FIELD(C, owner, number, name, kind, true,                \
                m->add_##name(Argument{value}), m.name(index),     \
                m.name##_size(), nullptr, nullptr, type)
#define VANTIRO_REPEATED_STRING_FIELD(C, owner, number, name, kind, type)   \
  VANTIRO_FIELD(C, owner, number, name, kind, true,                         \
                m->add_##name(value.bytes), m.name(index), m.name##_size(), \
                nullptr, nullptr, type)
#define VANTIRO_MESSAGE_FIELD(C, owner, number, name, kind, type)             \
  VANTIRO_FIELD(                                                              \
      C, owner, number, name, kind, false,                                    \
      MergeBytes(value.bytes, m->mutable_##name()), m.name(), m.has_##name(), \
      [](MessageLite* m) -> MessageLite* {                                    \
        return static_cast<C*>(m)->release_##name();                          \
      },                                                                      \
      [](MessageLite* m, MessageLite* value) {                                \
        using T = std::remove_pointer_t<                                      \
            decltype(static_cast<C*>(m)->mutable_##name())>;                  \
        static_cast<C*>(m)->set_allocated_##name(static_cast<T*>(value));     \
      },                                                                      \
      type)
#define VANTIRO_REPEATED_MESSAGE_FIELD(C, owner, number, name, kind, type) \
  VANTIRO_FIELD(C, owner, number, name, kind, true,                        \
                MergeBytes(value.bytes, m->add_##name()), m.name(index),   \
                m.name##_size(), nullptr, nullptr, type)
const Field kFields[] = {
#include "type_table.inc"
};

std::vector<Type>* MakeTypes() {
  auto* const types = new std::vector<Type>{
#define VANTIRO_MESSAGE(class, name) MakeType<class>(name),
#include "type_table.inc"
  };
  std::map<std::string, Type*> by_name;
  for (Type& type : *types) by_name[type.name] = &type;
  for (Field field : kFields) {
    if (field.kind == Kind::MESSAGE) field.type = by_name.at(field.type_name);
    by_name.at(field.owner_name)->fields.emplace(field.number, field);
  }
#define VANTIRO_UNPACKED_FIELD(owner, number) \
  by_name.at(owner)->fields.at(number).is_packed = false;
#include "type_table.inc"
  return types;
}

}  // namespace

bool MergeBytes(const std::string& bytes, MessageLite* message) {
  CodedInputStream input(reinterpret_cast<const uint8_t*>(bytes.data()),
                         static_cast<int>(bytes.size()));
  return message->MergeFromCodedStream(&input) && input.ConsumedEntireMessage();
}

const std::vector<Type>& AllTypes() {
  static const auto* const types = MakeTypes();
  return *types;
}

const Type& FindType(const std::string& name) {
  static const auto* const by_name = [] {
    auto* const map = new std::map<std::string, const Type*>;
    for (const Type& type : AllTypes()) (*map)[type.name] = &type;
    return map;
  }();
  return *by_name->at(name);
}

}  // namespace tests
}  // namespace vantiro
