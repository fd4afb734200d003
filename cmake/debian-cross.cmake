# Shared by the toolchain files: Debian's cross compiler for ${triplet}. The
# libraries for that machine are Debian's own, in /usr/lib/${triplet}, or those
# below the folders in CMAKE_FIND_ROOT_PATH.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# What the libraries found there need in their turn is there too.
foreach(root ${CMAKE_FIND_ROOT_PATH})
  string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -Wl,-rpath-link,${root}/usr/lib/${triplet}")
endforeach()
