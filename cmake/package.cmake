# What cmake --install puts where, and the Debian packages: for a switch
# switch-config and switch-config-doc, with the simulated switch one of another
# name, so that nobody puts it on a switch by mistake.
include(GNUInstallDirs)
if(SWITCH_DEVICE_LIBRARY)
  set(package switch-config)
else()
  set(package switch-config-simulator)
endif()
set(docs ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package})
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME tool)

set(installed ${programs})
list(REMOVE_ITEM installed switch-device-check)
install(TARGETS ${installed} DESTINATION ${CMAKE_INSTALL_SBINDIR})
install(PROGRAMS ${PROJECT_SOURCE_DIR}/companions/switch-config-apply
  DESTINATION ${CMAKE_INSTALL_SBINDIR})

file(GLOB documents CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/docs/*.svg)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${docs} COMPONENT doc)
install(FILES ${documents} DESTINATION ${docs}/docs COMPONENT doc)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/examples DESTINATION ${docs}/docs
  USE_SOURCE_PERMISSIONS COMPONENT doc)

# Each page once for man, and once as it is, for the links between the documents.
file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.[58])
foreach(page ${pages})
  cmake_path(GET page FILENAME name)
  string(REGEX MATCH ".$" section ${name})
  add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/${name}.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${page} ${PROJECT_BINARY_DIR}
    COMMAND gzip -9nf ${name}
    DEPENDS ${page} VERBATIM)
  list(APPEND compressed ${PROJECT_BINARY_DIR}/${name}.gz)
  if(name STREQUAL switch-device-check.8)
    continue()
  endif()
  install(FILES ${PROJECT_BINARY_DIR}/${name}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()
add_custom_target(manual ALL DEPENDS ${compressed})
install(FILES ${pages} DESTINATION ${docs}/docs COMPONENT doc)

install(FILES ${PROJECT_BINARY_DIR}/codes DESTINATION ${CMAKE_INSTALL_DATADIR}/switch-config)

# For those who port the tool: cmake --install build --component device-check.
install(TARGETS switch-device-check DESTINATION ${CMAKE_INSTALL_SBINDIR}
  COMPONENT device-check EXCLUDE_FROM_ALL)
install(FILES ${PROJECT_SOURCE_DIR}/docs/switch-device-check.8
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man8 COMPONENT device-check EXCLUDE_FROM_ALL)

set(CPACK_DEBIAN_PACKAGE_RELEASE 0.1 CACHE STRING
    "Revision of the Debian packages: raise it for newer packages of the same version")

# Debian asks for these in each package.
configure_file(packaging/changelog.in changelog.Debian @ONLY)
set(changelog ${PROJECT_BINARY_DIR}/changelog.Debian)
add_custom_command(OUTPUT ${changelog}.gz
  COMMAND gzip -9nkf ${changelog} DEPENDS ${changelog})
add_custom_target(compressed_changelog ALL DEPENDS ${changelog}.gz)
set(notices ${PROJECT_SOURCE_DIR}/packaging/copyright ${changelog}.gz)
install(FILES ${notices} DESTINATION ${docs})

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "switch-config developers <switch-config@example.org>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL tool doc)

if(SWITCH_DEVICE_LIBRARY)
  install(FILES ${notices} DESTINATION ${docs}-doc COMPONENT doc)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_TOOL_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_TOOL_PACKAGE_CONFLICTS switch-config-simulator)
  set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_TOOL_PACKAGE_SUGGESTS ${package}-doc)
  set(CPACK_DEBIAN_TOOL_DESCRIPTION
"back up, check and restore the configuration of an Ethernet switch
Moves the whole configuration of an industrial managed Ethernet switch to and
from one human-readable document. It runs on the switch itself, once for each
task, for the web interface or another management process. At a terminal,
start with the manual page switch-config-apply(8).
.
The device libraries of the switch are not part of this package.")
  set(CPACK_DEBIAN_DOC_PACKAGE_NAME ${package}-doc)
  set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
  set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
  set(CPACK_DEBIAN_DOC_DESCRIPTION
"back up, check and restore the configuration of a switch (documentation)
Guides for those who port switch-config to a device library, develop it, or
write programs around it. The scripts and folders that they name are those of
the sources.")
  # dpkg-shlibdeps does not know the packages of another architecture's libraries.
  # Of libc the version that the tool is built with will do.
  if(CMAKE_CROSSCOMPILING)
    execute_process(COMMAND ${CMAKE_C_COMPILER} -E -dM -include features.h -x c /dev/null
      OUTPUT_VARIABLE macros)
    string(REGEX MATCH "__GLIBC__ ([0-9]+)" libc_version "${macros}")
    set(libc_version ${CMAKE_MATCH_1})
    string(REGEX MATCH "__GLIBC_MINOR__ ([0-9]+)" minor "${macros}")
    string(APPEND libc_version .${CMAKE_MATCH_1})
    file(REAL_PATH ${INIPARSER} file)
    string(REGEX REPLACE ".*\\.so\\.([0-9]+).*" "\\1" soname_version ${file})
    set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS OFF)
    set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS 
      "libc6 (>= ${libc_version}), libiniparser${soname_version}")
  endif()
  # It looks for the device libraries where they were linked from.
  foreach(library ${SWITCH_DEVICE_LIBRARY})
    cmake_path(GET library PARENT_PATH folder)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
  endforeach()
else()
  set(CPACK_DEBIAN_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_PACKAGE_CONFLICTS switch-config)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
      "back up, check and restore the configuration of a simulated switch")
  set(CPACK_PACKAGE_DESCRIPTION
"The switch-config tool with a simulated Ethernet switch in place of the device
libraries, for those who write its callers or its documents. The simulated
switch is a JSON file; README.md in /usr/share/doc/switch-config-simulator says
how to make another switch of it.
.
Not for use on a switch.")
endif()
include(CPack)
