// The debug records, as their components fill them.

#ifndef VANTIRO_EXAMPLES_DEMO_FILL_H_
#define VANTIRO_EXAMPLES_DEMO_FILL_H_

#include "zABC_debug.pb.h"
#include "zAF_debug.pb.h"
#include "zHAWB_debug.pb.h"

namespace vantiro::examples {

// Each fills an empty record with one frame. The numbers are plausible ones:
// what a field called field_<number> means is not part of the schema.
void Fill(z3a_debug_data::zabc::DebugExif* record);
void Fill(z3a_debug_data::zhawb::DebugExif* record);
void Fill(z3a_debug_data::zaf::DebugExif* record);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEMO_FILL_H_
