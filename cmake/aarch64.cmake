# 64-bit ARM, for kernels with pages of 4 KiB. The default alignment, for pages
# of 64 KiB, pads the tool with half its size again.
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,-z,max-page-size=4096")
set(triplet aarch64-linux-gnu)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
