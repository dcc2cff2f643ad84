#include "internal/scc_info.h"

#include <google/protobuf/generated_message_util.h>
#include <pthread.h>

#include <mutex>

namespace vantiro {
namespace internal {
namespace {

// Both are constant-initialised and trivially destroyed: nothing runs at load.
std::mutex init_mutex;
// The thread that initialises, or 0, which is no thread's identity.
std::atomic<pthread_t> init_thread{0};

SccInfoBase* const* Dependencies(SccInfoBase* scc) {
  return reinterpret_cast<SccInfo<0>*>(scc)->dependencies;
}

// Depth first, dependencies before dependents.
void InitInOrder(SccInfoBase* scc) {
  if (scc->visit_status.load(std::memory_order_relaxed) !=
      SccInfoBase::kUninitialized) {
    return;
  }
  scc->visit_status.store(SccInfoBase::kRunning, std::memory_order_relaxed);
  for (int i = 0; i < scc->dependency_count; ++i) {
    InitInOrder(Dependencies(scc)[i]);
  }
  scc->init_function();
  scc->visit_status.store(SccInfoBase::kInitialized, std::memory_order_release);
}

}  // namespace

void InitSccImpl(SccInfoBase* scc) noexcept {
  const pthread_t self = pthread_self();
  if (init_thread.load(std::memory_order_relaxed) == self) return;
  google::protobuf::internal::InitProtobufDefaults();
  std::lock_guard<std::mutex> lock(init_mutex);
  init_thread.store(self, std::memory_order_relaxed);
  InitInOrder(scc);
  init_thread.store(0, std::memory_order_relaxed);
}

}  // namespace internal
}  // namespace vantiro
