// The classes that the installed compiler gives.

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

std::vector<Class> StockClasses() {
  return {
      MakeClass<::stock::z3a_debug_data::z3abase::FaceRoiType>(
          "z3a_debug_data.z3abase.FaceRoiType",
          FillFaces<::stock::z3a_debug_data::z3abase::FaceRoiType>),
      MakeClass<::stock::z3a_debug_data::z3abase::FrameInformation>(
          "z3a_debug_data.z3abase.FrameInformation",
          FillFrame<::stock::z3a_debug_data::z3abase::FrameInformation>),
      MakeClass<::stock::z3a_debug_data::z3abase::ZhawbInformation>(
          "z3a_debug_data.z3abase.ZhawbInformation",
          FillWhiteBalance<::stock::z3a_debug_data::z3abase::ZhawbInformation>),
      MakeClass<::stock::z3a_debug_data::z3abase::FamiliarFaceTruetoneInput>(
          "z3a_debug_data.z3abase.FamiliarFaceTruetoneInput"),
      MakeClass<::stock::z3a_debug_data::z3abase::SensorRoiInfo>(
          "z3a_debug_data.z3abase.SensorRoiInfo"),
      MakeClass<::stock::z3a_debug_data::z3abase::ZAbcInformationToZHawb>(
          "z3a_debug_data.z3abase.ZAbcInformationToZHawb"),
      MakeClass<::stock::z3a_debug_data::zabc::DebugExif>(
          "z3a_debug_data.zabc.DebugExif"),
      MakeClass<::stock::z3a_debug_data::zabc::DebugCompact>(
          "z3a_debug_data.zabc.DebugCompact"),
      MakeClass<::stock::z3a_debug_data::zhawb::DebugExif>(
          "z3a_debug_data.zhawb.DebugExif"),
      MakeClass<::stock::z3a_debug_data::zaf::DebugExif>(
          "z3a_debug_data.zaf.DebugExif"),
      MakeClass<::stock::z3a_debug_data::zaf::ZAfExifDebugOutput>(
          "z3a_debug_data.zaf.ZAfExifDebugOutput"),
      MakeClass<::stock::z3a_debug_data::zaf::ZAfVideoMetadata>(
          "z3a_debug_data.zaf.ZAfVideoMetadata"),
      MakeClass<::stock::z3a_debug_data::zatm::DebugExif>(
          "z3a_debug_data.zatm.DebugExif"),
  };
}

}  // namespace bench
}  // namespace vantiro
