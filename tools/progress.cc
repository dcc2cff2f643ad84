#include "tools/progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

namespace vantiro {
namespace inspection {
namespace {

constexpr size_t kMany = 50;
constexpr int kWidth = 40;

}  // namespace

Progress::Progress(size_t total, bool is_quiet)
    : total_(total),
      is_shown_(!is_quiet && total >= kMany && isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
  // Leaves the line as it was before the bar.
  if (is_shown_) std::fputs("\r\033[K", stderr);
}

void Progress::Show(size_t done) {
  const int percent = static_cast<int>(done * 100 / (total_ == 0 ? 1 : total_));
  if (!is_shown_ || percent == percent_) return;
  percent_ = percent;
  const int filled = percent * kWidth / 100;
  std::fprintf(stderr, "\r[%s%s] %zu of %zu", std::string(filled, '#').c_str(),
               std::string(kWidth - filled, '.').c_str(), done, total_);
  std::fflush(stderr);
}

}  // namespace inspection
}  // namespace vantiro
