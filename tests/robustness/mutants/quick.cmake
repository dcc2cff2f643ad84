# Included by the scratch build: the library in few pieces, which read the
# runtime's headers once each, and the plug-in, which makes all classes again for
# each fault in it, optimised a little.
cmake_language(DEFER CALL set_target_properties vantiro_classes PROPERTIES
  UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
cmake_language(DEFER CALL target_compile_options vantiro_compiler PRIVATE -O1)
