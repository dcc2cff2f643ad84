#include "tools/record/leaves.h"

#include <charconv>
#include <iterator>
#include <utility>

#include "tools/record/value_text.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

// Appends to one path and to one value, since most of the time would go into
// making strings.
class LeafWalker {
 public:
  LeafWalker(std::string path, const LeafVisitor& visit)
      : path_(std::move(path)), visit_(visit) {}

  void Walk(const Record& record) {
    if (record.fields.empty() && record.unknown.empty() && !path_.empty()) {
      visit_(path_, "{}");
    }
    const size_t size = path_.size();
    for (const auto& entry : record.fields) {
      AppendName(entry.second.field().name());
      WalkField(entry.second);
      path_.resize(size);
    }
    if (record.unknown.empty()) return;
    AppendName("@unknown");
    visit_(path_, UnknownHex(record));
    path_.resize(size);
  }

 private:
  void AppendName(const std::string& name) {
    if (!path_.empty()) path_ += '.';
    path_ += name;
  }

  void WalkField(const FieldValue& value) {
    const FieldDescriptor& field = value.field();
    const bool is_message =
        field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
    if (!is_message && !field.is_repeated()) {
      value_.clear();
      AppendValueText(value, &value_);
      visit_(path_, value_);
    } else if (field.is_repeated()) {
      WalkElements(value);
    } else {
      for (const Record& message : value.messages()) Walk(message);
    }
  }

  void WalkElements(const FieldValue& value) {
    const size_t size = path_.size();
    size_t index = 0;
    for (const Record& message : value.messages()) {
      AppendIndex(index++);
      Walk(message);
      path_.resize(size);
    }
    for (const uint64_t bits : value.scalars()) {
      AppendIndex(index++);
      value_.clear();
      AppendScalarText(value.field(), bits, &value_);
      visit_(path_, value_);
      path_.resize(size);
    }
  }

  void AppendIndex(size_t index) {
    char digits[24];
    path_ += '[';
    path_.append(digits, std::to_chars(digits, std::end(digits), index).ptr);
    path_ += ']';
  }

  std::string path_;
  std::string value_;
  const LeafVisitor& visit_;
};

}  // namespace

void VisitLeaves(const Record& record, const std::string& path,
                 const LeafVisitor& visit) {
  LeafWalker(path, visit).Walk(record);
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
