// The way to the private members of emitted classes.

#ifndef VANTIRO_LIB_INTERNAL_MESSAGE_ACCESS_H_
#define VANTIRO_LIB_INTERNAL_MESSAGE_ACCESS_H_

#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/message_lite.h>

#include <cstdint>
#include <new>

namespace vantiro {
namespace internal {

enum class CopyTarget;
struct ParseState;
class Writer;

// A friend of every emitted class. Installed with the emitted headers, whose
// inline functions need Swap and Move.
class MessageAccess {
 public:
  // Exchanges the fields of two messages, wherever each of them is allocated.
  template <typename T>
  static void Swap(T* a, T* b) {
    if (a == b) return;
    if (a->GetOwningArena() == b->GetOwningArena()) {
      a->InternalSwap(b);
    } else {
      google::protobuf::internal::GenericSwap(a, b);
    }
  }

  // Gives `to` the fields of `from`, which are copied only if the two are
  // allocated in different places.
  template <typename T>
  static void Move(T* from, T* to) {
    if (from->GetOwningArena() != to->GetOwningArena()) {
      to->CopyFrom(*from);
    } else if (from != to) {
      to->InternalSwap(from);
    }
  }

  // The FlatParser of a class.
  template <typename T>
  static const uint8_t* (*Parser())(google::protobuf::MessageLite* message,
                                    const uint8_t* p, const uint8_t* end,
                                    ParseState* state) {
    return &T::_InternalParseFlat;
  }

  template <typename T>
  static uint8_t* Serialize(const T& message, uint8_t* p, Writer* writer) {
    return message._InternalSerializeFlat(p, writer);
  }

  template <typename T>
  static void Copy(const T& from, CopyTarget target, T* to) {
    to->CopyFields(from, target);
  }

  // A new message at `space`, which is on `arena`.
  template <typename T>
  static T* Construct(void* space, google::protobuf::Arena* arena) {
    return new (space) T(arena);
  }

  // The arena that `message` was created for, null if it was for none.
  template <typename T>
  static google::protobuf::Arena* ArenaOf(const T& message) {
    return message.GetOwningArena();
  }

  template <typename T>
  static int CachedSize(const T& message) {
    return message._cached_size_.Get();
  }
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_MESSAGE_ACCESS_H_
