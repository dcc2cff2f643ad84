// The data of the search box.

#ifndef VANTIRO_TOOLS_REFERENCE_SEARCH_INDEX_H_
#define VANTIRO_TOOLS_REFERENCE_SEARCH_INDEX_H_

#include <string>

#include "tools/schema/schema.h"

namespace vantiro {
namespace reference {

// A JSON array with an entry for each type: the unit, the last part of the
// package, "message" or "enum", the name, and the names of its fields or
// values.
std::string SearchIndex(const tools::Schema& schema);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_SEARCH_INDEX_H_
