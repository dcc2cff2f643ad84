// A progress bar for many files.

#ifndef VANTIRO_TOOLS_IO_PROGRESS_H_
#define VANTIRO_TOOLS_IO_PROGRESS_H_

#include <cstddef>

namespace vantiro {
namespace tools {

// A progress bar on standard error. It is not shown if that is not a terminal,
// with --quiet, or if `total` is small. Not thread-safe.
class Progress {
 public:
  Progress(size_t total, bool is_quiet);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(size_t done);
  // Clears the line for other output, until the next Show.
  void Hide();

 private:
  const size_t total_;
  const bool is_shown_;
  int percent_ = -1;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_PROGRESS_H_
