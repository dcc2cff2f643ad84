#include "internal/scc_info.h"

#include <google/protobuf/generated_message_util.h>
#include <pthread.h>

#include <mutex>

namespace vantiro {
namespace internal {
namespace {

// Both are constant-initialised and trivially destroyed: nothing runs at load.
std::mutex set_up_mutex;
// The thread that is setting up, 0 if none is: no thread has that identity.
std::atomic<pthread_t> set_up_thread{0};

SetUpRecord* const* Dependencies(SetUpRecord* record) {
  return reinterpret_cast<SetUpRecordFor<0>*>(record)->dependencies;
}

// Depth first, dependencies before dependents.
void Visit(SetUpRecord* record) {
  if (record->visit_status.load(std::memory_order_relaxed) !=
      SetUpRecord::kUninitialized) {
    return;
  }
  record->visit_status.store(SetUpRecord::kRunning, std::memory_order_relaxed);
  for (int i = 0; i < record->dependency_count; ++i) {
    Visit(Dependencies(record)[i]);
  }
  record->set_up();
  record->visit_status.store(SetUpRecord::kInitialized,
                             std::memory_order_release);
}

}  // namespace

void RunSetUp(SetUpRecord* record) noexcept {
  const pthread_t self = pthread_self();
  if (set_up_thread.load(std::memory_order_relaxed) == self) return;
  google::protobuf::internal::InitProtobufDefaults();
  std::lock_guard<std::mutex> lock(set_up_mutex);
  set_up_thread.store(self, std::memory_order_relaxed);
  Visit(record);
  set_up_thread.store(0, std::memory_order_relaxed);
}

}  // namespace internal
}  // namespace vantiro
