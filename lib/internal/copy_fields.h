// Copying a message to one that may hold something already (CopyFrom).

#ifndef VANTIRO_LIB_INTERNAL_COPY_FIELDS_H_
#define VANTIRO_LIB_INTERNAL_COPY_FIELDS_H_

#include <google/protobuf/arena.h>
#include <google/protobuf/arenastring.h>
#include <google/protobuf/metadata_lite.h>
#include <google/protobuf/repeated_field.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "internal/accessors.h"
#include "internal/four.h"
#include "internal/message_access.h"
#include "internal/repeated_capacity.h"

namespace vantiro {
namespace internal {

// What the target of a copy is afterwards, apart from its content. The storage
// of its sub-messages and elements is used again, but nobody can tell, except
// by their addresses (Copying.*).
enum class CopyTarget {
  // What Clear and MergeFrom make of it: repeated fields keep their capacity
  // and their elements.
  kCleared,
  // What MergeFrom makes of a new message: repeated fields have the capacity of
  // a new copy, on which it depends how some input is read
  // (ReadUnpackedVarint).
  kNew,
};

// Makes a -0.0 a 0.0, as merging into a zero does.
inline void DropNegativeZero(double* value) {
  if (*value == 0) *value = 0;
}

// Makes each -0.0 of `kCount` adjacent floats a 0.0, as merging into a zero
// does.
template <int kCount>
__attribute__((always_inline)) inline void DropNegativeZeros(float* first) {
  if (kCount < 4) {
    for (int i = 0; i < kCount; ++i) {
      if (first[i] == 0) first[i] = 0;
    }
    return;
  }
  for (int i = 0; i < kCount; i += 4) {
    // The last four overlap those before them if kCount is no multiple of 4.
    float* const four = first + std::min(i, kCount - 4);
    const Four bits = LoadFour(four);
    const Four kept = bits & ~IsZero(bits << 1);
    std::memcpy(four, &kept, sizeof(kept));
  }
}

inline void CopyUnknownFields(
    const google::protobuf::internal::InternalMetadata& from,
    google::protobuf::internal::InternalMetadata* to) {
  to->Clear<std::string>();
  to->MergeFrom<std::string>(from);
}

inline void CopyString(const google::protobuf::internal::ArenaStringPtr& from,
                       google::protobuf::Arena* arena,
                       google::protobuf::internal::ArenaStringPtr* field) {
  if (from.Get().empty()) {
    field->ClearToEmpty();
  } else {
    field->Set(from.Get(), arena);
  }
}

// Makes a RepeatedField or RepeatedPtrField empty and without capacity.
template <typename Repeated>
__attribute__((noinline, cold)) void Renew(Repeated* field) {
  Repeated renewed(field->GetArena());
  field->UnsafeArenaSwap(&renewed);
}

// Out of line: emitted code copies repeated fields of a few types in many
// places.
template <typename T>
__attribute__((flatten, noinline)) void CopyElements(
    const RepeatedField<T>& from, CopyTarget target, RepeatedField<T>* field) {
  if (field->Capacity() == 0) return AddElements(from, field);
  const int new_capacity =
      from.empty() ? 0 : std::max(kMinCapacity, from.size());
  if (target == CopyTarget::kNew && field->Capacity() != new_capacity) {
    Renew(field);
  }
  field->Clear();
  AddElements(from, field);
}

template <typename T>
inline void CopyRepeated(const RepeatedField<T>& from, CopyTarget target,
                         RepeatedField<T>* field) {
  if (from.empty() && field->Capacity() == 0) return;
  CopyElements(from, target, field);
}

// Whether `message` is where its owner is: it need not be if it was set by an
// `unsafe_arena_` operation. It is then not the owner's to write to.
template <typename T>
bool IsOnArena(const T& message, google::protobuf::Arena* arena) {
  return MessageAccess::ArenaOf(message) == arena;
}

template <typename T>
void CopyRepeated(const google::protobuf::RepeatedPtrField<T>& from,
                  CopyTarget target,
                  google::protobuf::RepeatedPtrField<T>* field) {
  const auto is_elsewhere = [field](const T& element) {
    return !IsOnArena(element, field->GetArena());
  };
  if (target == CopyTarget::kNew &&
      (field->size() + field->ClearedCount() > from.size() ||
       std::any_of(field->begin(), field->end(), is_elsewhere))) {
    Renew(field);
  }
  while (field->size() > from.size()) field->RemoveLast();
  const int kept = field->size();
  for (int i = 0; i < kept; ++i) {
    MessageAccess::Copy(from.Get(i), target, field->Mutable(i));
  }
  field->Reserve(from.size());
  for (int i = kept; i < from.size(); ++i) {
    MessageAccess::Copy(from.Get(i), target, field->Add());
  }
}

// `arena` is the arena of the message whose field it is.
template <typename T>
void CopySubMessage(const T* from, google::protobuf::Arena* arena, T** field) {
  if (*field != nullptr && (from == nullptr || !IsOnArena(**field, arena))) {
    ClearMessage(arena, field);
  }
  if (from == nullptr) return;
  MessageAccess::Copy(*from, CopyTarget::kNew, MutableMessage(arena, field));
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_COPY_FIELDS_H_
