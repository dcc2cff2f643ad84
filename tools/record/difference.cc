#include "tools/record/difference.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "tools/record/alignment.h"
#include "tools/record/leaves.h"
#include "tools/record/likeness.h"
#include "tools/record/value_text.h"

namespace vantiro {
namespace tools {
namespace {

// The paths to a value in both records.
struct PathPair {
  PathPair Sub(const std::string& name) const {
    return {SubPath(before, name), SubPath(after, name)};
  }
  // Without the path of a record that has no such element.
  PathPair At(const ElementPair& pair) const {
    return {pair.before.has_value() ? IndexPath(before, *pair.before) : "",
            pair.after.has_value() ? IndexPath(after, *pair.after) : ""};
  }

  std::string before;
  std::string after;
};

class Comparer {
 public:
  Comparer(const ComparisonOptions& options,
           const std::function<void(const Difference&)>& visit)
      : options_(options), visit_(visit) {}

  void Compare(const Record& before, const Record& after,
               const PathPair& paths) {
    std::set<int> numbers;
    for (const auto& entry : before.fields) numbers.insert(entry.first);
    for (const auto& entry : after.fields) numbers.insert(entry.first);
    for (const int number : numbers) {
      const FieldDescriptor& field = *before.type->FindFieldByNumber(number);
      CompareField(ValueIn(before, field), ValueIn(after, field),
                   paths.Sub(field.name()));
    }
    if (before.unknown.empty() && after.unknown.empty()) {
      const bool is_empty = numbers.empty() && !paths.before.empty();
      if (is_empty) Visit("{}", "{}", paths);
      return;
    }
    Visit(UnknownHex(before), UnknownHex(after), paths.Sub("@unknown"));
  }

 private:
  static FieldValue Default(const Record& record,
                            const FieldDescriptor& field) {
    return record.is_complete ? DefaultValue(field) : FieldValue(field);
  }

  // The value of a field, or what stands for it.
  class ValueIn {
   public:
    ValueIn(const Record& record, const FieldDescriptor& field) {
      const auto found = record.fields.find(field.number());
      if (found != record.fields.end()) {
        value_ = &found->second;
      } else {
        default_ = Default(record, field);
      }
    }
    const FieldValue& operator*() const {
      return value_ == nullptr ? default_ : *value_;
    }

   private:
    const FieldValue* value_ = nullptr;
    FieldValue default_;
  };

  void CompareField(const ValueIn& before_value, const ValueIn& after_value,
                    const PathPair& paths) {
    const FieldValue& before = *before_value;
    const FieldValue& after = *after_value;
    const FieldDescriptor& field = before.field();
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
      Visit(before.string_value().empty() ? "" : ValueText(before),
            after.string_value().empty() ? "" : ValueText(after), paths);
    } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      CompareMessages(field, before.messages(), after.messages(), paths);
    } else {
      CompareScalars(field, before.scalars(), after.scalars(), paths);
    }
  }

  void CompareMessages(const FieldDescriptor& field,
                       ArrayView<const Record> before,
                       ArrayView<const Record> after, const PathPair& paths) {
    const auto key = [](const Record& message) {
      return std::hash<std::string>()(Serialize(message));
    };
    const Sequences sequences = {before.size(), after.size(),
                                 [&](size_t i, size_t j) {
                                   return Likeness(before[i], after[j],
                                                   options_.tolerance);
                                 },
                                 [&](size_t i) { return key(before[i]); },
                                 [&](size_t i) { return key(after[i]); }};
    for (const ElementPair& pair : Pairs(sequences)) {
      const PathPair element = field.is_repeated() ? paths.At(pair) : paths;
      if (!pair.after.has_value()) {
        AddLeaves(Difference::kRemoved, before[*pair.before], element.before);
      } else if (!pair.before.has_value()) {
        AddLeaves(Difference::kAdded, after[*pair.after], element.after);
      } else {
        Compare(before[*pair.before], after[*pair.after], element);
      }
    }
  }

  void CompareScalars(const FieldDescriptor& field,
                      ArrayView<const uint64_t> before,
                      ArrayView<const uint64_t> after, const PathPair& paths) {
    const Sequences sequences = {before.size(), after.size(),
                                 [&](size_t i, size_t j) {
                                   return Likeness(field, before[i], after[j],
                                                   options_.tolerance);
                                 },
                                 [&](size_t i) { return before[i]; },
                                 [&](size_t i) { return after[i]; }};
    const auto text = [&](ArrayView<const uint64_t> scalars,
                          const std::optional<size_t>& index) {
      return index.has_value() ? ScalarText(field, scalars[*index]) : "";
    };
    for (const ElementPair& pair : Pairs(sequences)) {
      const bool are_equal = pair.before.has_value() &&
                             pair.after.has_value() &&
                             AreEqual(field, before[*pair.before],
                                      after[*pair.after], options_.tolerance);
      if (are_equal && !options_.has_same) continue;
      const PathPair element = field.is_repeated() ? paths.At(pair) : paths;
      Visit(text(before, pair.before), text(after, pair.after), element,
            are_equal);
    }
  }

  std::vector<ElementPair> Pairs(const Sequences& sequences) const {
    const size_t before = sequences.before_count;
    const size_t after = sequences.after_count;
    const bool by_index = options_.by_index || std::max(before, after) <= 1 ||
                          std::min(before, after) == 0;
    return by_index ? AlignByIndex(before, after) : Align(sequences);
  }

  void Visit(const std::string& before, const std::string& after,
             const PathPair& paths, bool are_equal = false) {
    are_equal |= before == after;
    if (are_equal && (before.empty() || !options_.has_same)) return;
    const Difference::Kind kind = are_equal        ? Difference::kSame
                                  : before.empty() ? Difference::kAdded
                                  : after.empty()  ? Difference::kRemoved
                                                   : Difference::kChanged;
    visit_({kind, before.empty() ? "" : paths.before,
            after.empty() ? "" : paths.after, before, after});
  }

  void AddLeaves(Difference::Kind kind, const Record& record,
                 const std::string& path) {
    VisitLeaves(record, path,
                [&](const std::string& leaf, const std::string& value) {
                  if (kind == Difference::kAdded) {
                    visit_({kind, "", leaf, "", value});
                  } else {
                    visit_({kind, leaf, "", value, ""});
                  }
                });
  }

  const ComparisonOptions& options_;
  const std::function<void(const Difference&)>& visit_;
};

}  // namespace

std::string Difference::Path() const {
  if (before_path.empty()) return after_path;
  if (after_path.empty() || before_path == after_path) return before_path;
  // They are the same but for indexes.
  std::string path;
  size_t i = 0;
  size_t j = 0;
  while (i < before_path.size()) {
    path += before_path[i];
    if (before_path[i] == '[') {
      const size_t before_end = before_path.find(']', i);
      const size_t after_end = after_path.find(']', j);
      const std::string a = before_path.substr(i + 1, before_end - i - 1);
      const std::string b = after_path.substr(j + 1, after_end - j - 1);
      path += a == b ? a : a + "->" + b;
      i = before_end;
      j = after_end;
      continue;
    }
    ++i;
    ++j;
  }
  return path;
}

void Compare(const Record& before, const Record& after,
             const ComparisonOptions& options,
             const std::function<void(const Difference&)>& visit) {
  Comparer(options, visit).Compare(before, after, {});
}

}  // namespace tools
}  // namespace vantiro
