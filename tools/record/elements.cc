#include "tools/record/elements.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "tools/record/leaves.h"

namespace vantiro {
namespace tools {
namespace {

// How many steps of `path` lead to an element of `each`, or to what is around
// it.
size_t CommonSteps(const Path& path, const Path& each) {
  const size_t most = std::min(path.steps.size(), each.steps.size());
  for (size_t i = 0; i < most; ++i) {
    const PathStep& step = path.steps[i];
    const bool is_same =
        step.field == each.steps[i].field &&
        (!step.index.has_value() || step.index == each.steps[i].index);
    if (!is_same) return i;
  }
  return most;
}

class ElementVisitor {
 public:
  // `paths` are those of the type of the record.
  ElementVisitor(const Path& each, std::vector<std::optional<Path>>* paths,
                 const std::function<void(const std::string& element)>& visit)
      : each_(each), paths_(*paths), visit_(visit) {
    for (const std::optional<Path>& path : paths_) {
      common_steps_.push_back(path.has_value() ? CommonSteps(*path, each) : 0);
    }
  }

  void Visit(const Record& record, size_t depth, const std::string& path) {
    const PathStep& step = each_.steps[depth];
    const auto entry = record.fields.find(step.field->number());
    if (entry == record.fields.end()) return;
    const FieldValue& value = entry->second;
    const std::string field_path = SubPath(path, step.field->name());
    const bool is_last = depth + 1 == each_.steps.size();
    if (!step.field->is_repeated()) {
      Visit(value.messages()[0], depth + 1, field_path);
      return;
    }
    const size_t count = value.messages().size() + value.scalars().size();
    for (size_t i = 0; i < count; ++i) {
      if (step.index.has_value() && *step.index != i) continue;
      Lead(depth, i);
      const std::string element_path = IndexPath(field_path, i);
      if (is_last) {
        visit_(element_path);
      } else {
        Visit(value.messages()[i], depth + 1, element_path);
      }
    }
  }

 private:
  // Gives the step of the paths the index.
  void Lead(size_t depth, size_t index) {
    for (size_t i = 0; i < paths_.size(); ++i) {
      if (depth < common_steps_[i]) paths_[i]->steps[depth].index = index;
    }
  }

  const Path& each_;
  std::vector<std::optional<Path>>& paths_;
  std::vector<size_t> common_steps_;
  const std::function<void(const std::string& element)>& visit_;
};

}  // namespace

ElementPaths::ElementPaths(const std::string& each,
                           std::vector<std::string> texts,
                           const std::vector<const Descriptor*>& types)
    : each_({each}, types),
      paths_(texts.empty() ? std::vector<std::string>{each} : std::move(texts),
             types) {
  for (const Descriptor* const type : types) {
    const std::optional<Path>& path = each_.For(*type).front();
    if (!path.has_value()) continue;
    const PathStep& last = path->steps.back();
    if (!last.field->is_repeated() || last.index.has_value()) {
      throw NameError(each + " is one value and not a repeated field");
    }
  }
}

void ElementPaths::Visit(const Record& record, const Visitor& visit) const {
  const std::optional<Path>& each = each_.For(*record.type).front();
  if (!each.has_value()) return;
  Paths paths = paths_.CopyFor(*record.type);
  const auto visit_element = [&](const std::string& element) {
    visit(element, paths);
  };
  ElementVisitor(*each, paths.Mutable(*record.type), visit_element)
      .Visit(record, 0, "");
}

}  // namespace tools
}  // namespace vantiro
