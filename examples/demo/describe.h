// What a reader takes from a record.

#ifndef VANTIRO_EXAMPLES_DEMO_DESCRIBE_H_
#define VANTIRO_EXAMPLES_DEMO_DESCRIBE_H_

#include <ostream>

#include "z3a_common.pb.h"
#include "zABC_debug.pb.h"
#include "zAF_debug.pb.h"
#include "zHAWB_debug.pb.h"

namespace vantiro::examples {

// Each prints some of the record, in a few lines.
void Describe(const z3a_debug_data::z3abase::FaceRoiType& faces,
              std::ostream& out);
void Describe(const z3a_debug_data::z3abase::FamiliarFaceTruetoneInput& faces,
              std::ostream& out);
void Describe(const z3a_debug_data::z3abase::FrameInformation& frame,
              std::ostream& out);
void Describe(const z3a_debug_data::z3abase::SensorRoiInfo& roi,
              std::ostream& out);
void Describe(
    const z3a_debug_data::z3abase::ZAbcInformationToZHawb& information,
    std::ostream& out);
void Describe(const z3a_debug_data::z3abase::ZhawbInformation& information,
              std::ostream& out);
void Describe(const z3a_debug_data::zabc::DebugExif& record, std::ostream& out);
void Describe(const z3a_debug_data::zhawb::DebugExif& record,
              std::ostream& out);
void Describe(const z3a_debug_data::zaf::DebugExif& record, std::ostream& out);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEMO_DESCRIBE_H_
