#include "tools/statistics/field_statistics.h"

#include "tools/record/leaves.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

bool IsCounted(const FieldDescriptor& field) {
  return field.cpp_type() == FieldDescriptor::CPPTYPE_ENUM ||
         field.cpp_type() == FieldDescriptor::CPPTYPE_BOOL;
}

Number::Kind KindOf(const FieldDescriptor* field) {
  return field == nullptr ? Number::kUnsigned : Number::KindOf(*field);
}

// Counts the value of a bool or an enum.
void CountValue(uint64_t bits, FieldStatistics* statistics) {
  const FieldDescriptor& field = *statistics->field;
  const auto number = static_cast<int32_t>(bits);
  const bool is_declared =
      field.enum_type() == nullptr || DeclaredValue(field, bits) != nullptr;
  if (is_declared) {
    ++statistics->counts[number];
    return;
  }
  if (statistics->undeclared_kinds > FieldStatistics::kMaxUndeclared) {
    ++statistics->undeclared_count;
    return;
  }
  if (++statistics->counts[number] > 1) return;
  if (++statistics->undeclared_kinds <= FieldStatistics::kMaxUndeclared) return;
  // All of them, so that the order of the records does not matter.
  for (auto i = statistics->counts.begin(); i != statistics->counts.end();) {
    if (field.enum_type()->FindValueByNumber(i->first) != nullptr) {
      ++i;
      continue;
    }
    statistics->undeclared_count += i->second;
    i = statistics->counts.erase(i);
  }
}

void AddScalar(uint64_t bits, FieldStatistics* statistics) {
  const FieldDescriptor& field = *statistics->field;
  if (IsCounted(field)) {
    CountValue(bits, statistics);
  } else if (IsFloat(field) && IsNan(bits)) {
    ++statistics->nan_count;
  } else {
    statistics->numbers.Add(Number::Of(field, bits));
  }
}

void VisitFields(
    const std::map<int, FieldStatistics>& fields, const std::string& path,
    const std::function<void(const std::string& path,
                             const FieldStatistics& field)>& visit) {
  for (const auto& [number, field] : fields) {
    if (number == 0) continue;
    const std::string sub_path = SubPath(path, field.field->name());
    visit(sub_path, field);
    VisitFields(field.fields, sub_path, visit);
  }
  const auto unknown = fields.find(0);
  if (unknown == fields.end()) return;
  visit(SubPath(path, "@unknown"), unknown->second);
}

}  // namespace

FieldStatistics::FieldStatistics(const FieldDescriptor* descriptor)
    : field(descriptor),
      numbers(KindOf(descriptor)),
      sizes(Number::kUnsigned) {}

void RecordStatistics::Add(const RecordTree& tree, const Record& record) {
  ++record_count_;
  damaged_count_ += tree.ok() ? 0U : 1U;
  total_size_ += tree.bytes.size();
  AddValues(record, &fields_);
  AddSizes(tree.nodes, &fields_);
  for (FieldStatistics* const field : touched_) {
    field->record_count += field->is_in_record ? 1U : 0U;
    field->is_in_record = false;
    if (field->size_in_record == 0) continue;
    field->sizes.Add(Number::Of(field->size_in_record));
    field->total_size += field->size_in_record;
    field->size_in_record = 0;
  }
  touched_.clear();
}

void RecordStatistics::Visit(
    const std::function<void(const std::string& path,
                             const FieldStatistics& field)>& visit) const {
  VisitFields(fields_, "", visit);
}

FieldStatistics* RecordStatistics::At(const FieldDescriptor* field,
                                      Fields* fields) {
  const int number = field == nullptr ? 0 : field->number();
  FieldStatistics* const found =
      &fields->try_emplace(number, field).first->second;
  if (!found->is_in_record && found->size_in_record == 0) {
    touched_.push_back(found);
  }
  return found;
}

void RecordStatistics::AddValues(const Record& record, Fields* fields) {
  for (const auto& entry : record.fields) {
    const FieldValue& value = entry.second;
    const size_t count =
        value.field().cpp_type() == FieldDescriptor::CPPTYPE_STRING
            ? 1
            : value.scalars().size() + value.messages().size();
    if (count == 0) continue;
    FieldStatistics* const statistics = At(&value.field(), fields);
    statistics->is_in_record = true;
    statistics->value_count += count;
    for (const uint64_t bits : value.scalars()) AddScalar(bits, statistics);
    for (const Record& message : value.messages()) {
      AddValues(message, &statistics->fields);
    }
  }
  if (record.unknown.empty()) return;
  FieldStatistics* const statistics = At(nullptr, fields);
  statistics->is_in_record = true;
  statistics->value_count += static_cast<size_t>(record.unknown.field_count());
}

void RecordStatistics::AddSizes(const std::vector<Node>& nodes,
                                Fields* fields) {
  for (const Node& node : nodes) {
    FieldStatistics* const statistics = At(node.field, fields);
    statistics->size_in_record += node.span().size;
    if (node.field != nullptr) AddSizes(node.children, &statistics->fields);
  }
}

}  // namespace tools
}  // namespace vantiro
