# Debian's cross compiler for 64-bit Arm, and its multiarch libraries.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
# What is built runs as it would there: with the libraries of that machine.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
