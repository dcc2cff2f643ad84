# The Android NDK's own toolchain, for 64-bit Arm and platform API level 33.
set(ndk_toolchain
  "$ENV{ANDROID_NDK_HOME}/build/cmake/android.toolchain.cmake")
if(NOT EXISTS "${ndk_toolchain}")
  message(FATAL_ERROR
    "ANDROID_NDK_HOME is '$ENV{ANDROID_NDK_HOME}', where no Android NDK lies.")
endif()
set(ANDROID_ABI arm64-v8a)
set(ANDROID_PLATFORM android-33)
set(ANDROID_STL c++_shared)
include("${ndk_toolchain}")
