// The debug record of focus, as its component fills it and as a reader sees it.

#ifndef VANTIRO_EXAMPLES_FOCUS_RECORD_H_
#define VANTIRO_EXAMPLES_FOCUS_RECORD_H_

#include <string>

#include "zAF_debug.pb.h"

namespace vantiro::examples {

// Fills an empty record with one frame. The numbers are plausible ones: what a
// field called field_<number> means is not part of the schema.
void FillFocus(z3a_debug_data::zaf::DebugExif* record);

// What a record holds, in two lines.
std::string DescribeFocus(const z3a_debug_data::zaf::DebugExif& record);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_FOCUS_RECORD_H_
