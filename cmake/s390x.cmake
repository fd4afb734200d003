# IBM Z, for the tests on a big-endian machine.
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(triplet s390x-linux-gnu)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE s390x)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
