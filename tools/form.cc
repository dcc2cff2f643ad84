#include "tools/form.h"

#include <google/protobuf/message_lite.h>

#include <algorithm>
#include <memory>

#include "tools/classes.h"
#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {
namespace {

void Count(const std::string& what, size_t offset,
           std::vector<Peculiarity>* differences) {
  const auto found = std::find_if(
      differences->begin(), differences->end(),
      [&what](const Peculiarity& other) { return other.what == what; });
  if (found == differences->end()) {
    differences->push_back({what, 1, offset});
  } else {
    ++found->count;
  }
}

void Count(Marks marks, size_t offset, Form* form) {
  auto* const list = marks.IsCanonical() ? &form->remarks : &form->differences;
  for (const std::string& what : marks.Names()) Count(what, offset, list);
}

void Count(const std::vector<Node>& nodes, Form* form) {
  for (const Node& node : nodes) {
    Count(node.marks, node.tag.offset, form);
    for (const Element& element : node.elements) {
      // A singular scalar's marks are its node's too.
      if (node.elements.size() > 1 || node.marks.empty()) {
        Count(element.marks, element.offset, form);
      }
    }
    Count(node.children, form);
  }
}

}  // namespace

Form FormOf(const Descriptor& type, std::string_view bytes) {
  Form form;
  const std::unique_ptr<google::protobuf::MessageLite> message =
      NewMessage(type.full_name());
  form.parses =
      message->ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
  const std::string written =
      form.parses ? message->SerializeAsString() : std::string();
  form.is_canonical = form.parses && written == bytes;
  const RecordTree tree = ReadRecord(type, bytes);
  if (tree.fault.has_value()) form.fault = tree.fault->Text();
  Count(tree.nodes, &form);
  if (form.parses && !form.is_canonical && form.differences.empty()) {
    const auto differ = std::mismatch(bytes.begin(), bytes.end(),
                                      written.begin(), written.end());
    form.differences.push_back(
        {"other bytes", 1, static_cast<size_t>(differ.first - bytes.begin())});
  }
  return form;
}

}  // namespace inspection
}  // namespace vantiro
