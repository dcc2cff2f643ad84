// Work in several threads, with results in order.

#ifndef VANTIRO_TOOLS_IO_ORDERED_WORK_H_
#define VANTIRO_TOOLS_IO_ORDERED_WORK_H_

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace vantiro {
namespace tools {

// Calls `work` for each task that `next` gives, in several threads at once, and
// `finish` with the results in the order of the tasks. `next` and `finish` are
// called by one thread at a time each. No more than four tasks for each thread
// are begun and not finished, so that memory does not grow with the number of
// tasks.
//
// The first exception of one of the functions ends the work, and Run throws it.
template <typename Task, typename Result>
class OrderedWork {
 public:
  struct Steps {
    std::function<std::optional<Task>()> next;
    std::function<Result(Task)> work;
    std::function<void(Result)> finish;
  };

  explicit OrderedWork(Steps steps) : steps_(std::move(steps)) {}

  void Run(size_t thread_count) {
    if (thread_count <= 1) {
      while (std::optional<Task> task = steps_.next()) {
        steps_.finish(steps_.work(std::move(*task)));
      }
      return;
    }
    window_ = 4 * thread_count;
    std::vector<std::thread> threads;
    threads.reserve(thread_count);
    for (size_t i = 0; i < thread_count; ++i) {
      threads.emplace_back([this] { RunThread(); });
    }
    for (std::thread& thread : threads) thread.join();
    if (error_ != nullptr) std::rethrow_exception(error_);
  }

 private:
  void RunThread() {
    std::unique_lock<std::mutex> lock(mutex_);
    try {
      while (true) {
        finished_one_.wait(
            lock, [this] { return is_over_ || begun_ - finished_ < window_; });
        if (is_over_) return;
        std::optional<Task> task = steps_.next();
        if (!task.has_value()) break;
        const size_t number = begun_++;
        lock.unlock();
        Result result = steps_.work(std::move(*task));
        lock.lock();
        waiting_.emplace(number, std::move(result));
        Finish();
      }
    } catch (...) {
      if (!lock.owns_lock()) lock.lock();
      if (error_ == nullptr) error_ = std::current_exception();
    }
    is_over_ = true;
    finished_one_.notify_all();
  }

  void Finish() {
    while (error_ == nullptr && !waiting_.empty() &&
           waiting_.begin()->first == finished_) {
      Result result = std::move(waiting_.begin()->second);
      waiting_.erase(waiting_.begin());
      ++finished_;
      steps_.finish(std::move(result));
    }
    finished_one_.notify_all();
  }

  const Steps steps_;
  size_t window_ = 0;
  // Guards the members below, and `next` and `finish`.
  std::mutex mutex_;
  std::condition_variable finished_one_;
  // Results by the number of their task.
  std::map<size_t, Result> waiting_;
  size_t begun_ = 0;
  size_t finished_ = 0;
  // No further task is begun.
  bool is_over_ = false;
  std::exception_ptr error_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_ORDERED_WORK_H_
