#include "tools/check/canonical_form.h"

#include <google/protobuf/message_lite.h>

#include <algorithm>
#include <memory>

#include "tools/check/classes.h"
#include "tools/wire/record_tree.h"

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
  }
}

void Count(EncodingFlags flags, size_t offset, CanonicalFormReport* report) {
  for (const std::string& name : flags.NotCanonical().Names()) {
    Count(name, offset, &report->differences);
  }
  for (const std::string& name : flags.Canonical().Names()) {
    Count(name, offset, &report->remarks);
  }
}

void Count(const std::vector<Node>& nodes, CanonicalFormReport* report) {
  for (const Node& node : nodes) {
    // The node of a singular scalar or of an unpacked element has the flags of
    // its only element.
    if (node.IsPackedRun()) {
      Count(node.FlagsOfRun(), node.tag.offset, report);
      for (const Element& element : node.elements) {
        Count(element.flags, element.offset, report);
      }
    } else {
      Count(node.flags, node.tag.offset, report);
    }
    Count(node.children, report);
  }
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
  const RecordTree tree = ReadRecord(type, bytes);
  if (tree.fault.has_value()) report.fault = tree.fault->Text();
  Count(tree.nodes, &report);
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
