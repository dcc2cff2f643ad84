#include "tools/check/canonical_form.h"

#include <google/protobuf/message_lite.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "tools/check/classes.h"
#include "tools/wire/record_reader.h"

namespace vantiro {
namespace tools {
namespace {

void Count(const std::string& name, size_t offset,
           std::vector<FlagCount>* counts) {
  const auto found = std::find_if(
      counts->begin(), counts->end(),
      [&name](const FlagCount& other) { return other.name == name; });
  if (found == counts->end()) {
    counts->push_back({name, 1, offset});
  } else {
    ++found->count;
    found->offset = std::min(found->offset, offset);
  }
}

class FlagCounter : public RecordVisitor {
 public:
  explicit FlagCounter(CanonicalFormReport* report) : report_(*report) {}

  void Begin(const Occurrence& occurrence) override {
    Count(occurrence.flags, occurrence.tag.offset);
    at_begin_.push_back(occurrence.flags);
  }
  // Only a group has further flags of its own at its end.
  void End(const Occurrence& occurrence) override {
    EncodingFlags further = occurrence.flags;
    further.Remove(at_begin_.back());
    at_begin_.pop_back();
    if (!occurrence.IsPackedRun()) Count(further, occurrence.tag.offset);
  }
  void AddElement(const Element& element) override {
    Count(element.flags, element.offset);
  }
  // The flags of the element are among those of the occurrence.
  void Add(const Occurrence& occurrence, const Element* /*element*/) override {
    Count(occurrence.flags, occurrence.tag.offset);
  }

 private:
  void Count(EncodingFlags flags, size_t offset) {
    if (flags.empty()) return;
    for (const std::string& name : flags.NotCanonical().Names()) {
      tools::Count(name, offset, &report_.differences);
    }
    for (const std::string& name : flags.Canonical().Names()) {
      tools::Count(name, offset, &report_.remarks);
    }
  }

  CanonicalFormReport& report_;
  std::vector<EncodingFlags> at_begin_;
};

// The end of a group comes after what is in it.
void SortByOffset(std::vector<FlagCount>* counts) {
  std::stable_sort(counts->begin(), counts->end(),
                   [](const FlagCount& a, const FlagCount& b) {
                     return a.offset < b.offset;
                   });
}

}  // namespace

CanonicalFormReport CheckCanonicalForm(const Descriptor& type,
                                       std::string_view bytes) {
  CanonicalFormReport report;
  const std::unique_ptr<google::protobuf::MessageLite> message =
      NewMessage(type.full_name());
  report.parses =
      message->ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
  const std::string written =
      report.parses ? message->SerializeAsString() : std::string();
  report.is_canonical = report.parses && written == bytes;
  FlagCounter counter(&report);
  const std::optional<Fault> fault = RecordReader(bytes, &counter).Read(type);
  if (fault.has_value()) report.fault = fault->Text();
  SortByOffset(&report.differences);
  SortByOffset(&report.remarks);
  if (report.parses && !report.is_canonical && report.differences.empty()) {
    const auto differ = std::mismatch(bytes.begin(), bytes.end(),
                                      written.begin(), written.end());
    report.differences.push_back(
        {"different bytes", 1,
         static_cast<size_t>(differ.first - bytes.begin())});
  }
  return report;
}

}  // namespace tools
}  // namespace vantiro
