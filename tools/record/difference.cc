#include "tools/record/difference.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <set>
#include <utility>

#include "tools/record/leaves.h"
#include "tools/record/value_text.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

class Comparer {
 public:
  explicit Comparer(double tolerance) : tolerance_(tolerance) {}

  void Compare(const Record& before, const Record& after,
               const std::string& path) {
    std::set<int> numbers;
    for (const auto& entry : before.fields) numbers.insert(entry.first);
    for (const auto& entry : after.fields) numbers.insert(entry.first);
    for (const int number : numbers) {
      const FieldDescriptor& field = *before.type->FindFieldByNumber(number);
      CompareField(Value(before, field), Value(after, field),
                   SubPath(path, field.name()));
    }
    CompareTexts(UnknownHex(before), UnknownHex(after),
                 SubPath(path, "@unknown"));
  }

  std::vector<Difference> TakeDifferences() { return std::move(differences_); }

 private:
  const FieldValue& Value(const Record& record, const FieldDescriptor& field) {
    const auto found = record.fields.find(field.number());
    if (found != record.fields.end()) return found->second;
    return defaults_.emplace_back(record.is_complete ? DefaultValue(field)
                                                     : FieldValue(field));
  }

  void CompareField(const FieldValue& before, const FieldValue& after,
                    const std::string& path) {
    const FieldDescriptor& field = before.field();
    const auto element_path = [&](size_t i) {
      return field.is_repeated() ? IndexPath(path, i) : path;
    };
    const auto a = before.messages();
    const auto b = after.messages();
    for (size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
      if (i >= b.size()) {
        AddLeaves(Difference::kRemoved, a[i], element_path(i));
      } else if (i >= a.size()) {
        AddLeaves(Difference::kAdded, b[i], element_path(i));
      } else {
        Compare(a[i], b[i], element_path(i));
      }
    }
    CompareScalars(before, after, path);
    if (before.string_value() != after.string_value()) {
      CompareTexts(before.string_value().empty() ? "" : ValueText(before),
                   after.string_value().empty() ? "" : ValueText(after), path);
    }
  }

  void CompareScalars(const FieldValue& before, const FieldValue& after,
                      const std::string& path) {
    const FieldDescriptor& field = before.field();
    const auto a = before.scalars();
    const auto b = after.scalars();
    const auto text = [&](ArrayView<const uint64_t> scalars, size_t i) {
      return i < scalars.size() ? ScalarText(field, scalars[i]) : "";
    };
    for (size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
      if (i < a.size() && i < b.size() && AreEqual(field, a[i], b[i])) continue;
      CompareTexts(text(a, i), text(b, i),
                   field.is_repeated() ? IndexPath(path, i) : path);
    }
  }

  bool AreEqual(const FieldDescriptor& field, uint64_t a, uint64_t b) const {
    if (a == b) return true;
    if (!IsFloat(field) || IsNan(a) || IsNan(b) || tolerance_ <= 0) {
      return false;
    }
    return std::fabs(double{ToFloat(a)} - double{ToFloat(b)}) <= tolerance_;
  }

  void CompareTexts(const std::string& before, const std::string& after,
                    const std::string& path) {
    if (before == after) return;
    const Difference::Kind kind = before.empty()  ? Difference::kAdded
                                  : after.empty() ? Difference::kRemoved
                                                  : Difference::kChanged;
    differences_.push_back({kind, path, before, after});
  }

  void AddLeaves(Difference::Kind kind, const Record& record,
                 const std::string& path) {
    VisitLeaves(
        record, path, [&](const std::string& leaf, const std::string& value) {
          const bool is_added = kind == Difference::kAdded;
          differences_.push_back(
              {kind, leaf, is_added ? "" : value, is_added ? value : ""});
        });
  }

  const double tolerance_;
  // A deque, since its elements stay where they are.
  std::deque<FieldValue> defaults_;
  std::vector<Difference> differences_;
};

}  // namespace

std::vector<Difference> Compare(const Record& before, const Record& after,
                                double tolerance) {
  Comparer comparer(tolerance);
  comparer.Compare(before, after, "");
  return comparer.TakeDifferences();
}

}  // namespace tools
}  // namespace vantiro
