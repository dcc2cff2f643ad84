#include "tests/support/types.h"

#include <algorithm>

#include "all_units.h"

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
  };
}

}  // namespace

const std::vector<Type>& AllTypes() {
  static const auto* const types = new std::vector<Type>{
#define VANTIRO_MESSAGE(class, name) MakeType<class>(name),
#include "all_types.inc"
  };
  return *types;
}

const Type* FindType(const std::string& name) {
  const auto found =
      std::find_if(AllTypes().begin(), AllTypes().end(),
                   [&name](const Type& type) { return type.name == name; });
  return found == AllTypes().end() ? nullptr : &*found;
}

}  // namespace tests
}  // namespace vantiro
