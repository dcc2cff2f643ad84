#include "tools/record/path.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

// Removes "[2]" from the end of a step.
std::optional<size_t> RemoveIndex(std::string_view* step) {
  const size_t bracket = step->find('[');
  if (bracket == std::string_view::npos) return std::nullopt;
  const std::string_view digits = step->substr(bracket + 1);
  size_t index = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, index);
  if (result.ec != std::errc() || result.ptr + 1 != end || *result.ptr != ']') {
    throw NameError("not an index such as [2]: " + std::string(*step));
  }
  *step = step->substr(0, bracket);
  return index;
}

// By either of its names.
const FieldDescriptor* FindField(const Descriptor& type,
                                 const std::string& name) {
  for (int i = 0; i < type.field_count(); ++i) {
    if (type.field(i)->json_name() == name) return type.field(i);
  }
  return type.FindFieldByName(name);
}

PathStep ParseStep(const Descriptor* type, std::string_view text) {
  PathStep step{nullptr, RemoveIndex(&text)};
  const std::string name(text);
  if (type == nullptr) {
    throw NameError("the field before ." + name + " is not a message");
  }
  step.field = FindField(*type, name);
  if (step.field == nullptr) {
    throw NameError(type->full_name() + " has no field '" + name + "'; 'show " +
                    type->full_name() + "' lists them");
  }
  if (step.index.has_value() && !step.field->is_repeated()) {
    throw NameError(step.field->full_name() + " is not repeated");
  }
  return step;
}

void SelectFrom(const Path& path, size_t depth, const Record& record,
                std::vector<Selected>* selected) {
  const PathStep& step = path.steps[depth];
  const auto entry = record.fields.find(step.field->number());
  const bool is_there = entry != record.fields.end();
  if (step.field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
    if (!is_there && !record.is_complete) return;
    const FieldValue& value = is_there ? entry->second : path.default_value;
    if (!step.index.has_value() || *step.index < value.scalars().size()) {
      selected->push_back({nullptr, &value, step.index});
    }
    return;
  }
  if (!is_there) return;
  const ArrayView<const Record> messages = entry->second.messages();
  const size_t begin = step.index.value_or(0);
  const size_t end = std::min(
      messages.size(), step.index.has_value() ? begin + 1 : messages.size());
  for (size_t i = begin; i < end; ++i) {
    if (depth + 1 == path.steps.size()) {
      selected->push_back({&messages[i], nullptr, std::nullopt});
    } else {
      SelectFrom(path, depth + 1, messages[i], selected);
    }
  }
}

void RemoveFrom(const Path& path, size_t depth, Record* record) {
  const PathStep& step = path.steps[depth];
  const int number = step.field->number();
  if (depth + 1 == path.steps.size()) {
    record->fields.RemoveIf(
        [number](const auto& entry) { return entry.first == number; });
    return;
  }
  if (record->fields.count(number) == 0) return;
  ArrayView<Record> messages = record->fields[number].mutable_messages();
  for (size_t i = 0; i < messages.size(); ++i) {
    if (step.index.value_or(i) == i) RemoveFrom(path, depth + 1, &messages[i]);
  }
}

}  // namespace

bool Path::IsSingle() const {
  return std::all_of(steps.begin(), steps.end(), [](const PathStep& step) {
    return !step.field->is_repeated() || step.index.has_value() ||
           IsScalar(*step.field);
  });
}

Path ParsePath(const Descriptor& type, const std::string& text) {
  Path path;
  const Descriptor* message = &type;
  for (std::string_view rest = text;;) {
    const size_t dot = rest.find('.');
    path.steps.push_back(ParseStep(message, rest.substr(0, dot)));
    const FieldDescriptor& field = *path.steps.back().field;
    if (dot == std::string_view::npos) {
      path.default_value = DefaultValue(field);
      return path;
    }
    message = field.message_type();
    rest.remove_prefix(dot + 1);
  }
}

void RemoveField(const Path& path, Record* record) {
  RemoveFrom(path, 0, record);
}

std::vector<Selected> Select(const Path& path, const Record& record) {
  std::vector<Selected> selected;
  SelectFrom(path, 0, record, &selected);
  return selected;
}

Paths::Paths(std::vector<std::string> texts,
             const std::vector<const Descriptor*>& types)
    : texts_(std::move(texts)) {
  for (const Descriptor* const type : types) {
    paths_[type].resize(texts_.size());
  }
  for (size_t i = 0; i < texts_.size(); ++i) {
    std::optional<NameError> error;
    bool exists = false;
    for (auto& [type, paths] : paths_) {
      try {
        paths[i] = ParsePath(*type, texts_[i]);
        exists = true;
      } catch (const NameError& reason) {
        error = reason;
      }
    }
    if (exists) continue;
    if (types.size() == 1) throw NameError(*error);
    throw NameError("no type has the path " + texts_[i]);
  }
}

Paths Paths::CopyFor(const Descriptor& type) const {
  Paths copy;
  copy.texts_ = texts_;
  std::vector<std::optional<Path>>* const paths = &copy.paths_[&type];
  for (const std::optional<Path>& path : For(type)) {
    paths->emplace_back();
    if (!path.has_value()) continue;
    paths->back().emplace();
    paths->back()->steps = path->steps;
    paths->back()->default_value = DefaultValue(*path->steps.back().field);
  }
  return copy;
}

}  // namespace tools
}  // namespace vantiro
