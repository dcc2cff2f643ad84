#include "tools/formats/selection.h"

#include <utility>

#include "tools/record/value_text.h"

namespace vantiro {
namespace tools {
namespace {

Json OneJson(const Selected& selected) {
  if (selected.message != nullptr) return ToJson(*selected.message);
  if (!selected.index.has_value()) return ToJson(*selected.value);
  return ToJson(*selected.value->field,
                selected.value->scalars[*selected.index]);
}

Json JsonAt(const Path& path, const Record& record) {
  const std::vector<Selected> selected = Select(path, record);
  if (path.IsSingle()) return selected.empty() ? Json() : OneJson(selected[0]);
  Json values = Json::array();
  for (const Selected& value : selected) values.push_back(OneJson(value));
  return values;
}

}  // namespace

std::string SelectedText(const Selected& selected) {
  const FieldDescriptor& field = *selected.value->field;
  if (selected.index.has_value()) {
    return ScalarText(field, selected.value->scalars[*selected.index]);
  }
  return ValueText(*selected.value);
}

Json SelectedJson(const Paths& paths, const Record& record) {
  Json object = Json::object();
  const std::vector<std::optional<Path>>& of_type = paths.For(*record.type);
  for (size_t i = 0; i < of_type.size(); ++i) {
    object[paths.texts()[i]] =
        of_type[i].has_value() ? JsonAt(*of_type[i], record) : Json();
  }
  return object;
}

}  // namespace tools
}  // namespace vantiro
