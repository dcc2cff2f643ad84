// What the search box looks through.

#ifndef VANTIRO_TOOLS_REFERENCE_SEARCH_INDEX_H_
#define VANTIRO_TOOLS_REFERENCE_SEARCH_INDEX_H_

#include <string>

#include "tools/schema.h"

namespace vantiro {
namespace reference {

// A JSON list of all types: the unit's stem, the last part of the package,
// "message" or "enum", the name, and the names of its fields or values.
std::string SearchIndex(const inspection::Schema& schema);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_SEARCH_INDEX_H_
