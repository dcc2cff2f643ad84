#include "tools/io/progress.h"

#include <unistd.h>

#include <iostream>
#include <string>

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kMinTotal = 50;
constexpr int kWidth = 40;

}  // namespace

Progress::Progress(size_t total, bool is_quiet)
    : total_(total),
      is_shown_(!is_quiet && total >= kMinTotal && isatty(STDERR_FILENO) != 0) {
}

Progress::~Progress() { Hide(); }

void Progress::Show(size_t done) {
  const int percent = static_cast<int>(done * 100 / (total_ == 0 ? 1 : total_));
  if (!is_shown_ || percent == percent_) return;
  percent_ = percent;
  std::cout.flush();
  const auto filled = static_cast<size_t>(percent * kWidth / 100);
  std::cerr << "\r[" << std::string(filled, '#')
            << std::string(kWidth - filled, '.') << "] " << done << " of "
            << total_ << std::flush;
}

void Progress::Hide() {
  if (percent_ < 0) return;
  percent_ = -1;
  std::cerr << "\r\033[K" << std::flush;
}

}  // namespace tools
}  // namespace vantiro
