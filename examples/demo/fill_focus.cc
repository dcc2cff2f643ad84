#include "examples/demo/fill.h"

namespace vantiro::examples {
namespace {

namespace zaf = z3a_debug_data::zaf;

void FillRegion(zaf::ZAfRoiDim* region) {
  region->set_field_1(1840);
  region->set_field_2(1320);
  region->set_field_3(352);
  region->set_field_4(384);
}

// What the session was given. The numbers are lens positions.
void FillInput(zaf::ZAfDebugInput* input) {
  input->set_field_1(412.0f);
  input->set_field_7(zaf::AUTO_PASSIVE);
  input->set_field_8(zaf::START_SEARCH);
  input->set_field_9(zaf::PREVIEW);
  input->mutable_lens_range()->set_field_1(-40);
  input->mutable_lens_range()->set_field_2(1023);
  // Gravity along three axes. A repeated field of numbers is packed.
  for (const float axis : {0.02f, -9.79f, 0.41f}) {
    input->mutable_stats_gravity()->add_field_2(axis);
  }
  input->set_field_24(zaf::ROI_TYPE_FACE);
  FillRegion(input->mutable_roi_dim());
}

void FillFrameInput(zaf::ZAfFrameInput* input) {
  input->set_field_1(4711);
  input->set_sensor_name("rear_wide");
  input->set_field_16(zaf::AUTO_PASSIVE);
  input->mutable_focus_roi()->set_field_1(zaf::ROI_TYPE_FACE);
  input->mutable_focus_roi()->set_field_2(1);
  FillRegion(input->mutable_focus_roi()->add_roi_dim_list());
  // Phase detection, by window: nested messages are classes too.
  for (const int defocus : {-12, -9, 3}) {
    zaf::ZAfFrameInputPd::ZAfPdWindow* window =
        input->mutable_stats_depth()->mutable_pd()->add_pd_window_list();
    window->set_field_1(defocus);
    window->set_field_3(0.8f);
  }
  input->mutable_stats_vcm()->set_field_2(412);
}

}  // namespace

void Fill(zaf::DebugExif* record) {
  record->set_field_1(4711);
  record->set_field_3(zaf::POSITION_REAR);
  record->set_field_4(zaf::LENS_WIDE);
  FillInput(record->mutable_debug_session()->mutable_input());
  zaf::DebugCompact* search =
      record->mutable_debug_session()->mutable_search_info();
  search->mutable_pd_search_range()->set_field_1(380);
  search->mutable_pd_search_range()->set_field_2(440);
  search->set_field_24(zaf::kPhaseDetection);
  search->set_field_28(zaf::kPeak);
  record->mutable_debug_snapshot()->mutable_core()->set_field_3(
      zaf::FOCUS_SCAN_STATE_FINESCAN);
  FillFrameInput(record->add_frame_input_list());
}

}  // namespace vantiro::examples
