#include "tools/page/difference_page.h"

#include <deque>

#include "tools/page/html.h"
#include "tools/page/page_head.h"
#include "tools/wire/escape.h"

extern "C" const char vantiro_difference_style_begin[];
extern "C" const char vantiro_difference_style_end[];

namespace vantiro {
namespace tools {
namespace {

// How many rows of what is the same are shown around a difference.
constexpr size_t kContext = 3;

std::string Cell(const char* style, const std::string& text) {
  return std::string("<td class=\"") + style + "\">" + Escape(text) + "</td>";
}

class DifferencePage : public DifferenceWriter {
 public:
  DifferencePage(const std::string& title, std::ostream* out) : out_(*out) {
    WritePageHead(
        title,
        Between(vantiro_difference_style_begin, vantiro_difference_style_end),
        out);
    out_ << "<header>\n<h1>" << Escape(title) << R"(</h1>
<label><input type="checkbox" id="all"> Show what is the same</label>
</header>
<main>
)";
  }

  bool TakesSame() const override { return true; }

  void Begin(const ComparedRecords& records) override {
    out_ << "<section>\n<h2>" << Escape(EscapeControls(records.after_name))
         << "</h2>\n<p>" << Escape(records.type) << "</p>\n";
    WriteFault(records.before_name, records.before_fault);
    WriteFault(records.after_name, records.after_fault);
    out_ << "<table>\n<thead><tr><th scope=\"col\">Field</th><th "
            "scope=\"col\">"
         << Escape(EscapeControls(records.before_name))
         << "</th><th scope=\"col\">"
         << Escape(EscapeControls(records.after_name))
         << "</th></tr></thead>\n<tbody>\n";
    rows_since_difference_ = kContext;
  }

  void Write(const Difference& difference) override {
    if (difference.kind == Difference::kSame) {
      if (rows_since_difference_ < kContext) {
        ++rows_since_difference_;
        WriteRow("near", difference);
        return;
      }
      same_.push_back(difference);
      if (same_.size() <= kContext) return;
      WriteRow("same", same_.front());
      same_.pop_front();
      return;
    }
    WriteWaiting("near");
    rows_since_difference_ = 0;
    WriteRow(difference.kind == Difference::kAdded     ? "added"
             : difference.kind == Difference::kRemoved ? "removed"
                                                       : "changed",
             difference);
  }

  void End() override {
    WriteWaiting("same");
    out_ << "</tbody>\n</table>\n</section>\n";
  }

  void WriteLone(const std::string& file, bool is_before) override {
    out_ << "<section>\n<h2>" << Escape(EscapeControls(file))
         << "</h2>\n<p class=\"" << (is_before ? "removed" : "added")
         << "\">Only in the " << (is_before ? "first" : "second")
         << " folder.</p>\n</section>\n";
  }

  void WriteError(const std::string& /*before_name*/,
                  const std::string& after_name,
                  const std::string& error) override {
    out_ << "<section>\n<h2>" << Escape(EscapeControls(after_name))
         << "</h2>\n<p class=\"fault\">" << Escape(EscapeControls(error))
         << "</p>\n</section>\n";
  }

  void Finish() override { out_ << "</main>\n</body>\n</html>\n"; }

 private:
  void WriteFault(const std::string& name, const std::optional<Fault>& fault) {
    if (!fault.has_value()) return;
    out_ << "<p class=\"fault\">" << Escape(EscapeControls(name)) << ": "
         << Escape(fault->Text()) << "</p>\n";
  }

  void WriteWaiting(const char* style) {
    for (const Difference& row : same_) WriteRow(style, row);
    same_.clear();
  }

  void WriteRow(const char* style, const Difference& difference) {
    out_ << "<tr class=\"" << style << "\"><th scope=\"row\">"
         << Escape(difference.Path()) << "</th>"
         << Cell("before", difference.before) << Cell("after", difference.after)
         << "</tr>\n";
  }

  std::ostream& out_;
  size_t rows_since_difference_ = 0;
  // Rows that are the same, and may be near a difference.
  std::deque<Difference> same_;
};

}  // namespace

std::unique_ptr<DifferenceWriter> MakeDifferencePage(const std::string& title,
                                                     std::ostream* out) {
  return std::make_unique<DifferencePage>(title, out);
}

}  // namespace tools
}  // namespace vantiro
