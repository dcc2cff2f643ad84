#include "tools/formats/difference_writer.h"
#include "tools/formats/json.h"

namespace vantiro {
namespace tools {
namespace {

const char* Name(Difference::Kind kind) {
  switch (kind) {
    case Difference::kAdded:
      return "added";
    case Difference::kRemoved:
      return "removed";
    case Difference::kChanged:
      return "changed";
    default:
      return "same";
  }
}

class DifferenceJson : public DifferenceWriter {
 public:
  explicit DifferenceJson(std::ostream* out) : out_(*out) {}

  void Begin(const ComparedRecords& records) override {
    Json head = {{"before", records.before_name},
                 {"after", records.after_name},
                 {"type", records.type}};
    AddFault("before_fault", records.before_fault, &head);
    AddFault("after_fault", records.after_fault, &head);
    // The differences follow one by one, so that memory does not grow with
    // their number.
    std::string text = JsonText(head, -1);
    text.pop_back();
    out_ << text << ",\"differences\":[";
    is_first_ = true;
  }

  void Write(const Difference& difference) override {
    Json json = {{"kind", Name(difference.kind)}};
    if (difference.kind != Difference::kAdded) {
      json["before_path"] = difference.before_path;
      json["before"] = difference.before;
    }
    if (difference.kind != Difference::kRemoved) {
      json["after_path"] = difference.after_path;
      json["after"] = difference.after;
    }
    out_ << (is_first_ ? "" : ",") << JsonText(json, -1);
    is_first_ = false;
  }

  void End() override { out_ << "]}\n"; }

  void WriteLone(const std::string& file, bool is_before) override {
    out_ << JsonText({{is_before ? "only_before" : "only_after", file}}, -1)
         << '\n';
  }

  void WriteError(const std::string& before_name, const std::string& after_name,
                  const std::string& error) override {
    out_ << JsonText({{"before", before_name},
                      {"after", after_name},
                      {"error", error}},
                     -1)
         << '\n';
  }

 private:
  static void AddFault(const char* name, const std::optional<Fault>& fault,
                       Json* json) {
    if (!fault.has_value()) return;
    (*json)[name] = {{"offset", fault->offset},
                     {"path", fault->path},
                     {"what", fault->what}};
  }

  std::ostream& out_;
  bool is_first_ = true;
};

}  // namespace

std::unique_ptr<DifferenceWriter> MakeDifferenceJson(std::ostream* out) {
  return std::make_unique<DifferenceJson>(out);
}

}  // namespace tools
}  // namespace vantiro
