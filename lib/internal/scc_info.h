// Lazy initialisation of default instances, so that nothing has to run when the
// library is loaded.

#ifndef VANTIRO_LIB_INTERNAL_SCC_INFO_H_
#define VANTIRO_LIB_INTERNAL_SCC_INFO_H_

#include <atomic>
#include <cstddef>

namespace vantiro {
namespace internal {

// The state of one message's default instance. Initialised at compile time. The
// addresses of those that it depends on follow it in memory (SccInfo).
struct SccInfoBase {
  enum VisitStatus : int {
    kInitialized = 0,
    kRunning = 1,
    kUninitialized = -1
  };

  std::atomic<int> visit_status;
  int dependency_count;
  // Constructs the default instance. Called once, after those of all
  // dependencies.
  void (*init_function)();
};

// The same with its dependencies, one for each type of the message's fields.
template <int kCount>
struct SccInfo {
  template <int... kCounts>
  constexpr explicit SccInfo(void (*init_function)(),
                             SccInfo<kCounts>*... of_fields)
      : base{{SccInfoBase::kUninitialized}, kCount, init_function},
        dependencies{&of_fields->base...} {}

  SccInfoBase base;
  SccInfoBase* dependencies[size_t{kCount == 0 ? 1 : kCount}];
};

// The slow path of InitScc. Safe from any thread. An init function constructs a
// default instance, whose constructor calls InitScc again; that call, on the
// same thread, returns at once.
//
// An exception, which only operator new can throw here, ends the process: if
// the initialisation stopped half-way, all other threads would wait for ever.
void InitSccImpl(SccInfoBase* scc) noexcept;

// Makes sure that `scc` and everything that it depends on is initialised. After
// the first time this costs one acquire load.
template <int kCount>
void InitScc(SccInfo<kCount>* scc) {
  if (__builtin_expect(scc->base.visit_status.load(std::memory_order_acquire) !=
                           SccInfoBase::kInitialized,
                       false)) {
    InitSccImpl(&scc->base);
  }
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_SCC_INFO_H_
