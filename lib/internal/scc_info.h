// Lazy set-up of default instances, in place of initialisers that run when
// the library is loaded.

#ifndef VANTIRO_LIB_INTERNAL_SCC_INFO_H_
#define VANTIRO_LIB_INTERNAL_SCC_INFO_H_

#include <atomic>

namespace vantiro {
namespace internal {

// One record per message. Statically initialised; the list of the records that
// it depends on follows it in memory (SetUpRecordFor).
struct SetUpRecord {
  enum VisitStatus : int {
    kInitialized = 0,
    kRunning = 1,
    kUninitialized = -1
  };

  std::atomic<int> visit_status;
  int dependency_count;
  // Builds the message's default instance. Called once, after those of all
  // dependencies.
  void (*set_up)();
};

// A record with its dependencies: those of the message's field types.
template <int kCount>
struct SetUpRecordFor {
  SetUpRecord base;
  SetUpRecord* dependencies[kCount == 0 ? 1 : kCount];
};

// The slow road of EnsureSetUp. Safe from any thread. A set-up function
// constructs a default instance, whose constructor calls EnsureSetUp again;
// that call, on the same thread, returns at once.
//
// What throws in there, which can only be operator new, ends the process: a
// record that stayed half set up would hold up all threads for ever.
void RunSetUp(SetUpRecord* record) noexcept;

// Makes sure that `record` and all it depends on are set up. After the first
// time this is one acquire load.
inline void EnsureSetUp(SetUpRecord* record) {
  if (__builtin_expect(record->visit_status.load(std::memory_order_acquire) !=
                           SetUpRecord::kInitialized,
                       false)) {
    RunSetUp(record);
  }
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_SCC_INFO_H_
