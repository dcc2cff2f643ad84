# Included by the scratch build: the library in few pieces, which read the
# runtime's headers once each.
cmake_language(DEFER CALL set_target_properties vantiro_classes PROPERTIES
  UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
