#include "internal/arena_chunk.h"

#include <algorithm>

namespace vantiro {
namespace internal {

void ArenaChunk::Refill(size_t size, google::protobuf::Arena* arena) {
  const size_t chunk_size = std::max(size, next_size_);
  next_size_ = std::min(2 * next_size_, kMaxSize);
  arena_ = arena;
  next_ = google::protobuf::Arena::CreateArray<char>(arena, chunk_size);
  end_ = next_ + chunk_size;
}

}  // namespace internal
}  // namespace vantiro
