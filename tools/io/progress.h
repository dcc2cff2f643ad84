// A progress bar.

#ifndef VANTIRO_TOOLS_IO_PROGRESS_H_
#define VANTIRO_TOOLS_IO_PROGRESS_H_

#include <chrono>
#include <cstddef>
#include <string>

namespace vantiro {
namespace tools {

struct Amount {
  size_t files = 0;
  size_t size = 0;
};

// "[####....] 12 of 40 files, 3.4 of 9.7 MB, 2.1 MB/s, 0:03 left". Without what
// the total does not tell: files if they are no more than one, and the size of
// all, with the time that is left, if it is 0.
std::string ProgressLine(const Amount& done, const Amount& total,
                         double seconds);

// A progress bar on standard error, from one second on. It is not shown if that
// is not a terminal that can move its cursor, or with --quiet. Not thread-safe.
class Progress {
 public:
  Progress(const Amount& total, bool is_quiet);
  // Of one file.
  Progress(size_t total_size, bool is_quiet)
      : Progress(Amount{1, total_size}, is_quiet) {}
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // So much more is done.
  void Add(const Amount& done);
  // So much of one file is done.
  void Show(size_t done_size);
  // Clears the line for other output, until the bar is shown again.
  void Hide();

 private:
  using Clock = std::chrono::steady_clock;

  void Update();

  const Amount total_;
  const bool can_be_shown_;
  const Clock::time_point begin_ = Clock::now();
  Clock::time_point next_;
  Amount done_;
  bool is_shown_ = false;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_PROGRESS_H_
