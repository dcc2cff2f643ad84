// Paths to values in a record: "a.b[2].c". Fields have their names in the
// schema or those in JSON.

#ifndef VANTIRO_TOOLS_RECORD_PATH_H_
#define VANTIRO_TOOLS_RECORD_PATH_H_

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tools/record/record.h"

namespace vantiro {
namespace tools {

struct PathStep {
  const FieldDescriptor* field;
  std::optional<size_t> index;
};

struct Path {
  // Whether it leads to one value or message at most; all elements of a
  // repeated scalar are one value.
  bool IsSingle() const;

  std::vector<PathStep> steps;
  // Of the last step's field, unless that is a message.
  FieldValue default_value;
};

// Throws a NameError if messages of `type` have no such path.
Path ParsePath(const Descriptor& type, const std::string& text);

// What a path leads to: a message, or a value; of a repeated field all elements
// or the one of the index.
struct Selected {
  const Record* message;
  const FieldValue* value;
  std::optional<size_t> index;
};

// What `path` leads to in `record`; valid as long as both. A step to a repeated
// message without an index leads to each of its elements. A field that is not
// there has its default value, or none in a message that is not complete; an
// absent message, or an index that is too large, leads to nothing.
std::vector<Selected> Select(const Path& path, const Record& record);

// Removes the field that `path` leads to, in all messages that it leads to. The
// last step has no index.
void RemoveField(const Path& path, Record* record);

// The same paths for records of several types.
class Paths {
 public:
  // Throws a NameError if one of the paths exists in none of `types`.
  Paths(std::vector<std::string> texts,
        const std::vector<const Descriptor*>& types);

  // A copy for records of `type` alone, with its paths to change.
  Paths CopyFor(const Descriptor& type) const;
  std::vector<std::optional<Path>>* Mutable(const Descriptor& type) {
    return &paths_.at(&type);
  }

  const std::vector<std::string>& texts() const { return texts_; }
  bool empty() const { return texts_.empty(); }

  // The paths in the order of `texts`; without a value if the type, which is
  // one of `types`, has no such path.
  const std::vector<std::optional<Path>>& For(const Descriptor& type) const {
    return paths_.at(&type);
  }

 private:
  Paths() = default;

  std::vector<std::string> texts_;
  std::map<const Descriptor*, std::vector<std::optional<Path>>> paths_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_PATH_H_
