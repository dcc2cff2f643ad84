#include "tools/formats/difference_writer.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

class DifferenceLines : public DifferenceWriter {
 public:
  DifferenceLines(bool has_several, const Style& style, std::ostream* out)
      : has_several_(has_several), style_(style), out_(*out) {}

  void Begin(const ComparedRecords& records) override {
    heading_ = has_several_ ? "# " + EscapeControls(records.after_name) : "";
  }

  void Write(const Difference& difference) override {
    if (!heading_.empty()) out_ << style_.Note(heading_) << '\n';
    heading_.clear();
    const std::string path = difference.Path();
    switch (difference.kind) {
      case Difference::kSame:
        break;
      case Difference::kAdded:
        out_ << style_.Added("+ " + path + ": " + difference.after) << '\n';
        break;
      case Difference::kRemoved:
        out_ << style_.Removed("- " + path + ": " + difference.before) << '\n';
        break;
      case Difference::kChanged:
        out_ << "~ " << style_.Name(path) << ": "
             << style_.Removed(difference.before) << " -> "
             << style_.Added(difference.after) << '\n';
    }
  }

  void End() override {}

  void WriteLone(const std::string& file, bool is_before) override {
    const std::string name = EscapeControls(file);
    out_ << (is_before ? style_.Removed("- file " + name)
                       : style_.Added("+ file " + name))
         << '\n';
  }

 private:
  const bool has_several_;
  const Style style_;
  std::ostream& out_;
  // Of the pair, until it is written.
  std::string heading_;
};

}  // namespace

std::unique_ptr<DifferenceWriter> MakeDifferenceLines(bool has_several,
                                                      const Style& style,
                                                      std::ostream* out) {
  return std::make_unique<DifferenceLines>(has_several, style, out);
}

}  // namespace tools
}  // namespace vantiro
