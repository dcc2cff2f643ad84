// What the fields of many records hold.

#ifndef VANTIRO_TOOLS_STATISTICS_FIELD_STATISTICS_H_
#define VANTIRO_TOOLS_STATISTICS_FIELD_STATISTICS_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tools/record/record.h"
#include "tools/statistics/distribution.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {

// One field of the type or of a message in it. Elements of repeated fields
// count together.
struct FieldStatistics {
  // At most so many numbers are counted apart that the enum does not declare.
  static constexpr size_t kMaxUndeclared = 256;

  explicit FieldStatistics(const FieldDescriptor* descriptor);

  // Null for the unknown fields of the message.
  const FieldDescriptor* field;
  // How many records have the field, and how many values they have in it.
  size_t record_count = 0;
  size_t value_count = 0;
  // Of numbers.
  Distribution numbers;
  size_t nan_count = 0;
  // Of a bool or an enum: how often each value occurs.
  std::map<int32_t, size_t> counts;
  size_t undeclared_kinds = 0;
  // Values that the enum does not declare, once they are more than
  // kMaxUndeclared different ones.
  size_t undeclared_count = 0;
  // For each record whose bytes have the field: the size of it in all places,
  // tags and lengths included.
  Distribution sizes;
  uint64_t total_size = 0;
  // Of a message: its fields by number, 0 for unknown ones.
  std::map<int, FieldStatistics> fields;

  // Of the record that is being added.
  bool is_in_record = false;
  uint64_t size_in_record = 0;
};

// Memory is bounded by the type, not by the number of records.
class RecordStatistics {
 public:
  // Adds the values of `record`, and the sizes of the fields in `tree`, from
  // which the record was made.
  void Add(const RecordTree& tree, const Record& record);

  size_t record_count() const { return record_count_; }
  size_t damaged_count() const { return damaged_count_; }
  uint64_t total_size() const { return total_size_; }

  // Visits the fields in the order of their numbers, each before its own; the
  // unknown fields of a message are the last, as "@unknown".
  void Visit(
      const std::function<void(const std::string& path,
                               const FieldStatistics& field)>& visit) const;

 private:
  using Fields = std::map<int, FieldStatistics>;

  FieldStatistics* At(const FieldDescriptor* field, Fields* fields);
  void AddValues(const Record& record, Fields* fields);
  void AddSizes(const std::vector<Node>& nodes, Fields* fields);

  size_t record_count_ = 0;
  size_t damaged_count_ = 0;
  uint64_t total_size_ = 0;
  Fields fields_;
  // The fields of the record that is being added.
  std::vector<FieldStatistics*> touched_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_STATISTICS_FIELD_STATISTICS_H_
