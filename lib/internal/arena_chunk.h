// Space on an arena for the messages that a parse creates.

#ifndef VANTIRO_LIB_INTERNAL_ARENA_CHUNK_H_
#define VANTIRO_LIB_INTERNAL_ARENA_CHUNK_H_

#include <google/protobuf/arena.h>
#include <google/protobuf/repeated_field.h>

#include <cstddef>

#include "internal/accessors.h"
#include "internal/message_access.h"

namespace vantiro {
namespace internal {

// Takes space from an arena in chunks that hold several messages: to ask the
// arena for each costs more than to construct it. What is left of the last
// chunk is not used again, so each chunk is twice as large as the one before
// it, up to a limit.
class ArenaChunk {
 public:
  // Four chunks of this size fill one of the arena's largest blocks of 8 KiB.
  static constexpr size_t kMaxSize = 2016;

  // Space for `size` bytes on `arena`, aligned to eight bytes.
  void* Take(size_t size, google::protobuf::Arena* arena) {
    size = (size + 7) / 8 * 8;
    if (__builtin_expect(
            arena != arena_ || static_cast<size_t>(end_ - next_) < size,
            false)) {
      Refill(size, arena);
    }
    char* const taken = next_;
    next_ += size;
    return taken;
  }

 private:
  static constexpr size_t kFirstSize = 256;

  void Refill(size_t size, google::protobuf::Arena* arena);

  google::protobuf::Arena* arena_ = nullptr;
  char* next_ = nullptr;
  char* end_ = nullptr;
  size_t next_size_ = kFirstSize;
};

template <typename T>
T* NewMessage(google::protobuf::Arena* arena, ArenaChunk* chunk) {
  static_assert(alignof(T) <= 8, "a chunk's space is aligned to eight bytes");
  return MessageAccess::Construct<T>(chunk->Take(sizeof(T), arena), arena);
}

// The same as MutableMessage in accessors.h.
template <typename T>
T* MutableMessage(google::protobuf::Arena* arena, T** field,
                  ArenaChunk* chunk) {
  if (*field != nullptr) return *field;
  if (arena == nullptr) return MutableMessage(arena, field);
  return *field = NewMessage<T>(arena, chunk);
}

// The same as Add.
template <typename T>
T* AddMessage(google::protobuf::RepeatedPtrField<T>* field, ArenaChunk* chunk) {
  google::protobuf::Arena* const arena = field->GetArena();
  if (arena == nullptr || field->ClearedCount() > 0) return field->Add();
  T* const message = NewMessage<T>(arena, chunk);
  field->UnsafeArenaAddAllocated(message);
  return message;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_ARENA_CHUNK_H_
