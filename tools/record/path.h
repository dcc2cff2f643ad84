// Paths to values in a record: "a.b[2].c".

#ifndef VANTIRO_TOOLS_RECORD_PATH_H_
#define VANTIRO_TOOLS_RECORD_PATH_H_

#include <cstddef>
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

using Path = std::vector<PathStep>;

// Throws a NameError if messages of `type` have no such path.
Path ParsePath(const Descriptor& type, const std::string& text);

// What a path leads to: a message, or a value; of a repeated field all elements
// or the one of the index.
struct Selected {
  const Record* message;
  const FieldValue* value;
  std::optional<size_t> index;
};

// What `path` leads to in `record`. A step to a repeated message without an
// index leads to each of its elements. A field that is not there is added with
// its default value; an absent message, or an index that is too large, leads to
// nothing.
std::vector<Selected> Select(const Path& path, Record* record);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_PATH_H_
