// What a path leads to, as text and JSON.

#ifndef VANTIRO_TOOLS_FORMATS_SELECTION_H_
#define VANTIRO_TOOLS_FORMATS_SELECTION_H_

#include <string>

#include "tools/formats/json.h"
#include "tools/record/path.h"

namespace vantiro {
namespace tools {

// A value as ValueText writes it; not for messages.
std::string SelectedText(const Selected& selected);

// An object with a member for each path: its value, null if there is none, or
// an array if the path can lead to several.
Json SelectedJson(const Paths& paths, const Record& record);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_SELECTION_H_
