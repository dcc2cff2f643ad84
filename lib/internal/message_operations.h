// What the operations of emitted classes do for fields of a kind, and for
// messages of any class.

#ifndef VANTIRO_LIB_INTERNAL_MESSAGE_OPERATIONS_H_
#define VANTIRO_LIB_INTERNAL_MESSAGE_OPERATIONS_H_

#include <google/protobuf/arena.h>
#include <google/protobuf/arenastring.h>
#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/message_lite.h>

#include <cstdint>
#include <string>

#include "internal/accessors.h"
#include "internal/message_access.h"
#include "internal/write_scalar.h"
#include "internal/writer.h"

namespace vantiro {
namespace internal {

// Merging a field that is `from` in the other message. What would not be
// written is not merged.

inline void MergeString(const google::protobuf::internal::ArenaStringPtr& from,
                        google::protobuf::Arena* arena,
                        google::protobuf::internal::ArenaStringPtr* field) {
  if (!from.Get().empty()) field->Set(from.Get(), arena);
}

template <typename T>
void MergeMessage(const T* from, google::protobuf::Arena* arena, T** field) {
  if (from != nullptr) MutableMessage(arena, field)->MergeFrom(*from);
}

// CheckTypeAndMergeFrom: `from` must be a T.
template <typename T>
void MergeUnchecked(const google::protobuf::MessageLite& from, T* to) {
  to->MergeFrom(static_cast<const T&>(from));
}

// A copy on the heap, null if `from` is.
template <typename T>
T* CopyMessage(const T* from) {
  return from == nullptr ? nullptr : new T(*from);
}

// Sets a pointer of a default instance.
template <typename T>
void SetDefaultMessage(T** field) {
  *field = const_cast<T*>(T::internal_default_instance());
}

// Constructs the default instance of a class, which lives until the runtime's
// shutdown. `storage` is its <Class>DefaultTypeInternal, `file` the name of the
// emitted source.
template <typename Storage>
void InitDefaultInstance(Storage* storage, const char* file) {
  google::protobuf::internal::VerifyVersion(
      GOOGLE_PROTOBUF_VERSION, GOOGLE_PROTOBUF_MIN_LIBRARY_VERSION, file);
  storage->instance.DefaultConstruct();
  auto* const instance = storage->instance.get_mutable();
  google::protobuf::internal::OnShutdownDestroyMessage(instance);
  instance->InitAsDefaultInstance();
}

// _InternalSerialize: writes a message to `stream`, whose position is `target`.
// Returns the new position.
template <typename T>
uint8_t* SerializeToStream(const T& message, uint8_t* target,
                           google::protobuf::io::EpsCopyOutputStream* stream) {
  Writer writer(target, stream, MessageAccess::CachedSize(message),
                Writer::Overflow::kDrop);
  return writer.Finish(
      MessageAccess::Serialize(message, writer.Begin(), &writer));
}

// SerializeWithCachedSizes.
template <typename T>
void SerializeToCodedStream(const T& message,
                            google::protobuf::io::CodedOutputStream* output) {
  Writer writer(output->Cur(), output->EpsCopy(),
                MessageAccess::CachedSize(message), Writer::Overflow::kWrite);
  output->SetCur(writer.Finish(
      MessageAccess::Serialize(message, writer.Begin(), &writer)));
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_MESSAGE_OPERATIONS_H_
