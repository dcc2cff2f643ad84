#include "tools/io/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>

#include "tools/io/terminal.h"

namespace vantiro {
namespace tools {
namespace {

constexpr auto kBefore = std::chrono::seconds(1);
constexpr auto kBetween = std::chrono::milliseconds(100);
constexpr size_t kBarWidth = 20;

std::string Megabytes(double size) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.1f", size / 1e6);
  return text;
}

std::string Minutes(double seconds) {
  const auto whole = static_cast<size_t>(std::ceil(seconds));
  const std::string rest = std::to_string(whole % 60);
  return std::to_string(whole / 60) + (rest.size() == 1 ? ":0" : ":") + rest;
}

std::string Bar(double part) {
  const auto filled =
      static_cast<size_t>(std::min(part, 1.0) * static_cast<double>(kBarWidth));
  return '[' + std::string(filled, '#') + std::string(kBarWidth - filled, '.') +
         ']';
}

}  // namespace

std::string ProgressLine(const Amount& done, const Amount& total,
                         double seconds) {
  const auto size = static_cast<double>(done.size);
  const auto total_size = static_cast<double>(total.size);
  const bool has_size = total.size > 0;
  const double part =
      has_size ? size / total_size
               : static_cast<double>(done.files) /
                     static_cast<double>(std::max<size_t>(total.files, 1));
  std::string line = has_size || total.files > 1 ? Bar(part) + ' ' : "";
  if (total.files > 1) {
    line += std::to_string(done.files) + " of " + std::to_string(total.files) +
            " files, ";
  }
  line += Megabytes(size);
  if (has_size) line += " of " + Megabytes(total_size);
  line += " MB, " + Megabytes(size / seconds) + " MB/s";
  if (has_size && done.size > 0 && done.size <= total.size) {
    line += ", " + Minutes((total_size - size) * seconds / size) + " left";
  }
  return line;
}

Progress::Progress(const Amount& total, bool is_quiet)
    : total_(total),
      can_be_shown_(!is_quiet && IsCursorTerminal(stderr)),
      next_(begin_ + kBefore) {}

Progress::~Progress() { Hide(); }

void Progress::Add(const Amount& done) {
  done_.files += done.files;
  done_.size += done.size;
  Update();
}

void Progress::Show(size_t done_size) {
  done_.size = done_size;
  Update();
}

void Progress::Update() {
  if (!can_be_shown_) return;
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kBetween;
  const double seconds = std::chrono::duration<double>(now - begin_).count();
  std::string line = ProgressLine(done_, total_, seconds);
  if (const size_t width = TerminalWidth(stderr); line.size() >= width) {
    line.resize(width - 1);
  }
  std::cout.flush();
  std::cerr << "\r\033[K" << line << std::flush;
  is_shown_ = true;
}

void Progress::Hide() {
  if (!is_shown_) return;
  is_shown_ = false;
  std::cerr << "\r\033[K" << std::flush;
}

}  // namespace tools
}  // namespace vantiro
