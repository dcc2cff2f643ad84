// A progress bar for many files.

#ifndef VANTIRO_TOOLS_PROGRESS_H_
#define VANTIRO_TOOLS_PROGRESS_H_

#include <cstddef>

namespace vantiro {
namespace inspection {

// Shows on standard error how far a command is. Says nothing if that is no
// terminal, if it is told to be quiet, or if there are few files. For one
// thread.
class Progress {
 public:
  Progress(size_t total, bool is_quiet);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(size_t done);
  // Leaves the line to other output until it is shown again.
  void Hide();

 private:
  const size_t total_;
  const bool is_shown_;
  int percent_ = -1;
};

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PROGRESS_H_
