#include "tools/record/likeness.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

// Of numbers that are not equal.
constexpr double kMaxUnequal = 0.99;

double ToDouble(const FieldDescriptor& field, uint64_t bits) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_FLOAT:
      return double{ToFloat(bits)};
    case FieldDescriptor::CPPTYPE_INT32:
      return static_cast<int32_t>(bits);
    case FieldDescriptor::CPPTYPE_INT64:
      return static_cast<double>(static_cast<int64_t>(bits));
    default:
      return static_cast<double>(bits);
  }
}

bool IsNumber(const FieldDescriptor& field) {
  return field.cpp_type() != FieldDescriptor::CPPTYPE_ENUM &&
         field.cpp_type() != FieldDescriptor::CPPTYPE_BOOL;
}

// Sums over the values in two messages.
class Sum {
 public:
  explicit Sum(double tolerance) : tolerance_(tolerance) {}

  double Mean() const { return count_ == 0 ? 1 : likeness_ / count_; }

  void AddMessages(const Record& a, const Record& b) {
    auto in_a = a.fields.begin();
    auto in_b = b.fields.begin();
    while (in_a != a.fields.end() || in_b != b.fields.end()) {
      if (in_b == b.fields.end() ||
          (in_a != a.fields.end() && in_a->first < in_b->first)) {
        AddLone((in_a++)->second);
      } else if (in_a == a.fields.end() || in_b->first < in_a->first) {
        AddLone((in_b++)->second);
      } else {
        AddValues((in_a++)->second, (in_b++)->second);
      }
    }
    if (a.unknown.empty() && b.unknown.empty()) return;
    Add(Serialize(a.unknown) == Serialize(b.unknown) ? 1 : 0);
  }

 private:
  void Add(double likeness) {
    likeness_ += likeness;
    count_ += 1;
  }

  void AddValues(const FieldValue& a, const FieldValue& b) {
    const FieldDescriptor& field = a.field();
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
      Add(a.string_value() == b.string_value() ? 1 : 0);
      return;
    }
    AddScalars(field, a.scalars(), b.scalars());
    AddElements(a.messages(), b.messages());
  }

  void AddScalars(const FieldDescriptor& field, ArrayView<const uint64_t> a,
                  ArrayView<const uint64_t> b) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
      Add(Likeness(field, a[i], b[i], tolerance_));
    }
    count_ += static_cast<double>(std::max(a.size(), b.size()) - common);
  }

  void AddElements(ArrayView<const Record> a, ArrayView<const Record> b) {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) AddMessages(a[i], b[i]);
    for (size_t i = common; i < a.size(); ++i) AddLone(a[i]);
    for (size_t i = common; i < b.size(); ++i) AddLone(b[i]);
  }

  // A value that the other message does not have.
  void AddLone(const FieldValue& value) {
    const size_t scalars = value.scalars().size();
    const bool is_string =
        value.field().cpp_type() == FieldDescriptor::CPPTYPE_STRING;
    count_ += is_string ? 1 : static_cast<double>(scalars);
    for (const Record& message : value.messages()) AddLone(message);
  }

  // Also an empty message counts.
  void AddLone(const Record& message) {
    count_ += 1;
    for (const auto& entry : message.fields) AddLone(entry.second);
  }

  const double tolerance_;
  double likeness_ = 0;
  double count_ = 0;
};

}  // namespace

bool AreEqual(const FieldDescriptor& field, uint64_t a, uint64_t b,
              double tolerance) {
  if (a == b) return true;
  if (!IsFloat(field) || IsNan(a) || IsNan(b) || tolerance <= 0) return false;
  return std::fabs(double{ToFloat(a)} - double{ToFloat(b)}) <= tolerance;
}

double Likeness(const FieldDescriptor& field, uint64_t a, uint64_t b,
                double tolerance) {
  if (AreEqual(field, a, b, tolerance)) return 1;
  if (!IsNumber(field)) return 0;
  const double x = ToDouble(field, a);
  const double y = ToDouble(field, b);
  const double difference = std::fabs(x - y);
  const double mean = (std::fabs(x) + std::fabs(y)) / 2;
  // Written so that NaN and infinity are alike to nothing.
  if (!(difference * 4 < mean) || std::isinf(mean)) return 0;
  return std::min(1 - difference * 4 / mean, kMaxUnequal);
}

double Likeness(const Record& a, const Record& b, double tolerance) {
  Sum sum(tolerance);
  sum.AddMessages(a, b);
  return sum.Mean();
}

}  // namespace tools
}  // namespace vantiro
