// The paths and values in a record.

#ifndef VANTIRO_TOOLS_RECORD_LEAVES_H_
#define VANTIRO_TOOLS_RECORD_LEAVES_H_

#include <functional>
#include <string>

#include "tools/record/record.h"

namespace vantiro {
namespace tools {

using LeafVisitor =
    std::function<void(const std::string& path, const std::string& value)>;

// Visits every scalar, string, bytes and element of a repeated field, in the
// order of the fields; an empty message as "{}"; the unknown fields of a
// message as one value named "@unknown", in hexadecimal. Paths start with
// `path`.
void VisitLeaves(const Record& record, const std::string& path,
                 const LeafVisitor& visit);

// "path.name" and "path.name[3]".
std::string SubPath(const std::string& path, const std::string& name);
std::string IndexPath(const std::string& path, size_t index);

// The bytes of the unknown fields in hexadecimal.
std::string UnknownHex(const Record& record);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_LEAVES_H_
