// The library's classes.

#include "bench/class_list.h"
#include "z3a_common.pb.h"
#include "zABC_debug.pb.h"
#include "zAF_debug.pb.h"
#include "zATM_debug.pb.h"
#include "zHAWB_debug.pb.h"
#include "zaf_module_frame_io.pb.h"
#include "zaf_video_metadata.pb.h"

namespace vantiro {
namespace bench {

std::vector<Class> OurClasses() {
  return {
      MakeClass<::z3a_debug_data::z3abase::FaceRoiType>(
          "z3a_debug_data.z3abase.FaceRoiType",
          FillFaces<::z3a_debug_data::z3abase::FaceRoiType>),
      MakeClass<::z3a_debug_data::z3abase::FrameInformation>(
          "z3a_debug_data.z3abase.FrameInformation",
          FillFrame<::z3a_debug_data::z3abase::FrameInformation>),
      MakeClass<::z3a_debug_data::z3abase::ZhawbInformation>(
          "z3a_debug_data.z3abase.ZhawbInformation",
          FillWhiteBalance<::z3a_debug_data::z3abase::ZhawbInformation>),
      MakeClass<::z3a_debug_data::z3abase::FamiliarFaceTruetoneInput>(
          "z3a_debug_data.z3abase.FamiliarFaceTruetoneInput"),
      MakeClass<::z3a_debug_data::z3abase::SensorRoiInfo>(
          "z3a_debug_data.z3abase.SensorRoiInfo"),
      MakeClass<::z3a_debug_data::z3abase::ZAbcInformationToZHawb>(
          "z3a_debug_data.z3abase.ZAbcInformationToZHawb"),
      MakeClass<::z3a_debug_data::zabc::DebugExif>(
          "z3a_debug_data.zabc.DebugExif"),
      MakeClass<::z3a_debug_data::zabc::DebugCompact>(
          "z3a_debug_data.zabc.DebugCompact"),
      MakeClass<::z3a_debug_data::zhawb::DebugExif>(
          "z3a_debug_data.zhawb.DebugExif"),
      MakeClass<::z3a_debug_data::zaf::DebugExif>(
          "z3a_debug_data.zaf.DebugExif"),
      MakeClass<::z3a_debug_data::zaf::ZAfExifDebugOutput>(
          "z3a_debug_data.zaf.ZAfExifDebugOutput"),
      MakeClass<::z3a_debug_data::zaf::ZAfVideoMetadata>(
          "z3a_debug_data.zaf.ZAfVideoMetadata"),
      MakeClass<::z3a_debug_data::zatm::DebugExif>(
          "z3a_debug_data.zatm.DebugExif"),
  };
}

}  // namespace bench
}  // namespace vantiro
