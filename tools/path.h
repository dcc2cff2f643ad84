// Paths that pick values out of a record: "a.b[2].c".

#ifndef VANTIRO_TOOLS_PATH_H_
#define VANTIRO_TOOLS_PATH_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/record.h"

namespace vantiro {
namespace inspection {

struct PathStep {
  const FieldDescriptor* field;
  std::optional<size_t> index;
};

using Path = std::vector<PathStep>;

// Throws a NameError if messages of `type` have no such path.
Path ParsePath(const Descriptor& type, const std::string& text);

// What a path picks: a message, or a value, of a list all elements or the one.
struct Picked {
  const Record* message;
  const FieldValue* value;
  std::optional<size_t> index;
};

// What `path` picks from `record`. A list of messages without an index on the
// way picks from each of its elements. A field that is not there is zero or
// empty, and is put there; what lies in an absent message, or behind the end of
// a list, gives nothing.
std::vector<Picked> Pick(const Path& path, Record* record);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PATH_H_
