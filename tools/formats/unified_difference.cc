#include <deque>
#include <vector>

#include "tools/formats/difference_writer.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

// How many lines of what is the same are around a difference.
constexpr size_t kContext = 3;

class UnifiedDifference : public DifferenceWriter {
 public:
  UnifiedDifference(const Style& style, std::ostream* out)
      : style_(style), out_(*out) {}

  bool TakesSame() const override { return true; }

  void Begin(const ComparedRecords& records) override {
    heading_ =
        style_.Heading("--- " + EscapeControls(records.before_name)) + '\n' +
        style_.Heading("+++ " + EscapeControls(records.after_name)) + '\n';
    before_line_ = 0;
    after_line_ = 0;
  }

  void Write(const Difference& difference) override {
    if (difference.kind == Difference::kSame) {
      WriteSame(' ' + difference.after_path + ": " + difference.after);
      return;
    }
    OpenHunk();
    if (difference.kind != Difference::kAdded) {
      ++before_line_;
      removed_.push_back('-' + difference.before_path + ": " +
                         difference.before);
    }
    if (difference.kind != Difference::kRemoved) {
      ++after_line_;
      added_.push_back('+' + difference.after_path + ": " + difference.after);
    }
  }

  void End() override {
    CloseHunk();
    context_.clear();
  }

  void WriteLone(const std::string& file, bool is_before) override {
    const std::string name = EscapeControls(file);
    out_ << style_.Heading("--- " + (is_before ? name : "/dev/null")) << '\n'
         << style_.Heading("+++ " + (is_before ? "/dev/null" : name)) << '\n';
  }

 private:
  void WriteSame(const std::string& line) {
    AddChanges();
    ++before_line_;
    ++after_line_;
    context_.push_back(line);
    if (is_open_ && context_.size() <= 2 * kContext) return;
    CloseHunk();
    while (context_.size() > kContext) context_.pop_front();
  }

  // Begins a hunk with the lines before it, or continues the one before.
  void OpenHunk() {
    if (!is_open_) {
      is_open_ = true;
      before_begin_ = before_line_ - context_.size();
      after_begin_ = after_line_ - context_.size();
    }
    for (const std::string& line : context_) hunk_.push_back(line);
    context_.clear();
  }

  // What was removed is shown before what was added.
  void AddChanges() {
    for (const std::string& line : removed_) {
      hunk_.push_back(style_.Removed(line));
    }
    for (const std::string& line : added_) hunk_.push_back(style_.Added(line));
    removed_.clear();
    added_.clear();
  }

  void CloseHunk() {
    if (!is_open_) return;
    AddChanges();
    // The lines behind the last difference.
    size_t taken = 0;
    while (taken < kContext && taken < context_.size()) {
      hunk_.push_back(context_[taken++]);
    }
    const size_t rest = context_.size() - taken;
    out_ << heading_
         << style_.Note("@@ -" + Range(before_begin_, before_line_ - rest) +
                        " +" + Range(after_begin_, after_line_ - rest) + " @@")
         << '\n';
    for (const std::string& line : hunk_) out_ << line << '\n';
    heading_.clear();
    hunk_.clear();
    is_open_ = false;
  }

  // The lines after `begin` up to `end`, as diff has them: of no line, the one
  // before.
  static std::string Range(size_t begin, size_t end) {
    const size_t count = end - begin;
    return std::to_string(count == 0 ? begin : begin + 1) + ',' +
           std::to_string(count);
  }

  const Style style_;
  std::ostream& out_;
  // Of the pair, until it is written.
  std::string heading_;
  // How many lines of the records there were.
  size_t before_line_ = 0;
  size_t after_line_ = 0;
  // The last lines that are the same.
  std::deque<std::string> context_;
  bool is_open_ = false;
  size_t before_begin_ = 0;
  size_t after_begin_ = 0;
  std::vector<std::string> hunk_;
  // Since the last line that is the same.
  std::vector<std::string> removed_;
  std::vector<std::string> added_;
};

}  // namespace

std::unique_ptr<DifferenceWriter> MakeUnifiedDifference(const Style& style,
                                                        std::ostream* out) {
  return std::make_unique<UnifiedDifference>(style, out);
}

}  // namespace tools
}  // namespace vantiro
