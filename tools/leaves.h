// A record as a list of paths and values.

#ifndef VANTIRO_TOOLS_LEAVES_H_
#define VANTIRO_TOOLS_LEAVES_H_

#include <functional>
#include <string>

#include "tools/record.h"

namespace vantiro {
namespace inspection {

using LeafVisitor =
    std::function<void(const std::string& path, const std::string& value)>;

// Visits every scalar, text and element of a list, in the order of the fields;
// a message that holds none of these as "{}"; the unknown fields of a message
// as one leaf called "@unknown", in hexadecimal. Paths start with `path`.
void VisitLeaves(const Record& record, const std::string& path,
                 const LeafVisitor& visit);

// "path.name" and "path.name[3]".
std::string SubPath(const std::string& path, const std::string& name);
std::string IndexPath(const std::string& path, size_t index);

// The unknown fields as they are written, in hexadecimal.
std::string UnknownHex(const Record& record);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_LEAVES_H_
