#include "tools/record/path.h"

#include <charconv>
#include <string_view>

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

PathStep ParseStep(const Descriptor* type, std::string_view text) {
  PathStep step{nullptr, RemoveIndex(&text)};
  const std::string name(text);
  if (type == nullptr)
    throw NameError("the field before ." + name + " is not a message");
  step.field = type->FindFieldByName(name);
  if (step.field == nullptr) {
    throw NameError(type->full_name() + " has no field '" + name + "'; 'show " +
                    type->full_name() + "' lists them");
  }
  if (step.index.has_value() && !step.field->is_repeated()) {
    throw NameError(step.field->full_name() + " is not repeated");
  }
  return step;
}

void SelectFrom(const Path& path, size_t depth, Record* record,
                std::vector<Selected>* selected) {
  const PathStep& step = path[depth];
  FieldValue* const value = record->Mutable(*step.field);
  const bool is_last = depth + 1 == path.size();
  if (step.field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
    if (IsScalar(*step.field) && !step.field->is_repeated() &&
        value->scalars.empty()) {
      value->scalars.push_back(0);
    }
    if (!step.index.has_value() || *step.index < value->scalars.size()) {
      selected->push_back({nullptr, value, step.index});
    }
    return;
  }
  for (size_t i = 0; i < value->messages.size(); ++i) {
    if (step.index.has_value() && *step.index != i) continue;
    if (is_last) {
      selected->push_back({&value->messages[i], nullptr, std::nullopt});
    } else {
      SelectFrom(path, depth + 1, &value->messages[i], selected);
    }
  }
}

}  // namespace

Path ParsePath(const Descriptor& type, const std::string& text) {
  Path path;
  const Descriptor* message = &type;
  for (std::string_view rest = text;;) {
    const size_t dot = rest.find('.');
    path.push_back(ParseStep(message, rest.substr(0, dot)));
    if (dot == std::string_view::npos) return path;
    message = path.back().field->message_type();
    rest.remove_prefix(dot + 1);
  }
}

std::vector<Selected> Select(const Path& path, Record* record) {
  std::vector<Selected> selected;
  SelectFrom(path, 0, record, &selected);
  return selected;
}

}  // namespace tools
}  // namespace vantiro
