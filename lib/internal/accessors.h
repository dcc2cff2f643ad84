// What the inline accessors of emitted classes call. Installed with the emitted
// headers.

#ifndef VANTIRO_LIB_INTERNAL_ACCESSORS_H_
#define VANTIRO_LIB_INTERNAL_ACCESSORS_H_

#include <google/protobuf/arena.h>
#include <google/protobuf/arenastring.h>
#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/repeated_field.h>

#include <string>
#include <type_traits>

namespace vantiro {
namespace internal {

// Singular message fields. `field` is the pointer in the message, which owns
// the sub-message unless `arena` does. `arena` is that of the message: null on
// the heap, and always null for classes without arenas.

template <typename T>
const T& GetMessage(const T* field) {
  return field != nullptr ? *field : *T::internal_default_instance();
}

template <typename T>
T* MutableMessage(google::protobuf::Arena* arena, T** field) {
  if (*field == nullptr) {
    *field = google::protobuf::internal::GenericTypeHandler<T>::New(arena);
  }
  return *field;
}

// Replaces the sub-message by `value`, which may be null, without asking where
// `value` is allocated.
template <typename T>
void UnsafeArenaSetAllocatedMessage(T* value, google::protobuf::Arena* arena,
                                    T** field) {
  if (arena == nullptr) delete *field;
  *field = value;
}

// The same for a `value` that may be allocated anywhere. On an arena other than
// `arena` it is copied; from the heap it is given to `arena`.
template <typename T>
void SetAllocatedMessage(T* value, google::protobuf::Arena* arena, T** field) {
  T* owned = value;
  if (value != nullptr && value->GetArena() != arena) {
    if (arena != nullptr && value->GetArena() == nullptr) {
      arena->Own(value);
    } else {
      owned = google::protobuf::internal::GenericTypeHandler<T>::New(arena);
      owned->MergeFrom(*value);
    }
  }
  UnsafeArenaSetAllocatedMessage(owned, arena, field);
}

template <typename T>
void ClearMessage(google::protobuf::Arena* arena, T** field) {
  if (*field != nullptr) {
    UnsafeArenaSetAllocatedMessage<T>(nullptr, arena, field);
  }
}

// Takes the sub-message out of the message, still on the message's arena.
template <typename T>
T* UnsafeArenaReleaseMessage(T** field) {
  T* const released = *field;
  *field = nullptr;
  return released;
}

// Takes the sub-message out of the message. The caller owns what is returned: a
// copy if the message is on an arena.
template <typename T>
T* ReleaseMessage(google::protobuf::Arena* arena, T** field) {
  T* const released = UnsafeArenaReleaseMessage(field);
  return arena == nullptr
             ? released
             : google::protobuf::internal::DuplicateIfNonNull(released);
}

// Fields of type string and bytes, where ArenaStringPtr has no such function.

inline std::string* UnsafeArenaReleaseString(
    google::protobuf::internal::ArenaStringPtr* field) {
  if (field->IsDefault()) return nullptr;
  std::string* const released = field->UnsafeMutablePointer();
  field->InitDefault();
  return released;
}

inline void UnsafeArenaSetAllocatedString(
    std::string* value, google::protobuf::Arena* arena,
    google::protobuf::internal::ArenaStringPtr* field) {
  if (value == nullptr || arena == nullptr) {
    field->SetAllocated(value, nullptr);
    return;
  }
  // Not owned: the caller's arena outlives `arena`, or is the same.
  google::protobuf::internal::TaggedStringPtr unowned;
  unowned.SetMutableArena(value);
  field->UnsafeSetTaggedPointer(unowned);
}

// The argument of <Enum>_Name, which also takes numbers.
template <typename Enum, typename T>
constexpr Enum ToEnum(T value) {
  static_assert(std::is_same<T, Enum>::value || std::is_integral<T>::value,
                "<Enum>_Name takes a value of its enum, or an integer");
  return static_cast<Enum>(value);
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_ACCESSORS_H_
