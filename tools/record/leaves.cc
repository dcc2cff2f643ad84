#include "tools/record/leaves.h"

#include "tools/record/value_text.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

void VisitField(const FieldValue& value, const std::string& path,
                const LeafVisitor& visit) {
  const FieldDescriptor& field = *value.field;
  if (field.cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE &&
      !field.is_repeated()) {
    visit(path, ValueText(value));
  }
  for (size_t i = 0; i < value.messages.size(); ++i) {
    VisitLeaves(value.messages[i],
                field.is_repeated() ? IndexPath(path, i) : path, visit);
  }
  if (!field.is_repeated()) return;
  for (size_t i = 0; i < value.scalars.size(); ++i) {
    visit(IndexPath(path, i), ScalarText(field, value.scalars[i]));
  }
}

}  // namespace

void VisitLeaves(const Record& record, const std::string& path,
                 const LeafVisitor& visit) {
  if (record.fields.empty() && record.unknown.empty() && !path.empty()) {
    visit(path, "{}");
  }
  for (const auto& entry : record.fields) {
    VisitField(entry.second, SubPath(path, entry.second.field->name()), visit);
  }
  if (!record.unknown.empty()) {
    visit(SubPath(path, "@unknown"), UnknownHex(record));
  }
}

std::string SubPath(const std::string& path, const std::string& name) {
  return path.empty() ? name : path + '.' + name;
}

std::string IndexPath(const std::string& path, size_t index) {
  return path + '[' + std::to_string(index) + ']';
}

std::string UnknownHex(const Record& record) {
  return Hex(Serialize(record.unknown));
}

}  // namespace tools
}  // namespace vantiro
