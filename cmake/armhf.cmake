# 32-bit ARM with hardware floating point.
set(CMAKE_SYSTEM_PROCESSOR arm)
set(triplet arm-linux-gnueabihf)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
