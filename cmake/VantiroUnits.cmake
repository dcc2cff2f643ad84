# The schema units of the library, by the stem of their files.
set(VANTIRO_UNITS
  z3a_common
  zABC_debug
  zAF_debug
  zATM_debug
  zHAWB_common
  zHAWB_debug
  zHAWB_logging_debug
  zHAWB_video_debug
  zabc_stats_logging
  zabc_video_metadata
  zaf_common
  zaf_debug_ui
  zaf_module_frame_io
  zaf_stats_logging
  zaf_video_metadata)
