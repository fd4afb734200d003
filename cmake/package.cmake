# What cmake --install puts where, and the Debian package of it.
include(GNUInstallDirs)

install(TARGETS ${programs} DESTINATION ${CMAKE_INSTALL_SBINDIR})
install(PROGRAMS ${PROJECT_SOURCE_DIR}/companions/switch-config-apply
  ${PROJECT_SOURCE_DIR}/companions/switch-config-explain DESTINATION ${CMAKE_INSTALL_SBINDIR})

file(GLOB documents CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${documents} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)

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
  install(FILES ${PROJECT_BINARY_DIR}/${name}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()
add_custom_target(manual ALL DEPENDS ${compressed})
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)

# The report codes for programs, one a line: number, name, section, sentence.
set(manual ${PROJECT_SOURCE_DIR}/docs/switch-config.8)
set(codes ${PROJECT_BINARY_DIR}/codes)
set(make_codes ${PROJECT_SOURCE_DIR}/cmake/codes.awk)
add_custom_command(OUTPUT ${codes}
  COMMAND sh -c "awk -f \"$1\" \"$2\" >codes" sh ${make_codes} ${manual}
  DEPENDS ${manual} ${make_codes} VERBATIM)
add_custom_target(code_table ALL DEPENDS ${codes})
install(FILES ${codes} DESTINATION ${CMAKE_INSTALL_DATADIR}/switch-config)

# For those who port the tool: cmake --install build --component device-check.
install(TARGETS switch-device-check DESTINATION ${CMAKE_INSTALL_SBINDIR}
  COMPONENT device-check EXCLUDE_FROM_ALL)
install(FILES ${PROJECT_SOURCE_DIR}/docs/switch-device-check.8
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man8 COMPONENT device-check EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "switch-config developers")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# The package with the simulated switch has another name, so that nobody puts it
# on a switch by mistake.
if(SWITCH_DEVICE_LIBRARY)
  set(CPACK_DEBIAN_PACKAGE_NAME switch-config)
  set(CPACK_DEBIAN_PACKAGE_CONFLICTS switch-config-simulator)
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
      "back up, check and restore the configuration of an Ethernet switch")
  set(CPACK_PACKAGE_DESCRIPTION
"Moves the whole configuration of an industrial managed Ethernet switch to and
from one human-readable document. It runs on the switch itself, once for each
task, for the web interface or another management process.
.
The device libraries of the switch are no part of this package.")
  # dpkg-shlibdeps does not know the packages of another architecture's libraries.
  if(CMAKE_CROSSCOMPILING)
    file(REAL_PATH ${INIPARSER} file)
    string(REGEX REPLACE ".*\\.so\\.([0-9]+).*" "\\1" soname_version ${file})
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6 (>= 2.34), libiniparser${soname_version}")
  endif()
  # It looks for the device libraries where they were linked from.
  foreach(library ${SWITCH_DEVICE_LIBRARY})
    cmake_path(GET library PARENT_PATH folder)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
  endforeach()
else()
  set(CPACK_DEBIAN_PACKAGE_NAME switch-config-simulator)
  set(CPACK_DEBIAN_PACKAGE_CONFLICTS switch-config)
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
      "back up, check and restore the configuration of a simulated switch")
  set(CPACK_PACKAGE_DESCRIPTION
"The switch-config tool with a simulated Ethernet switch in place of the device
libraries, for those who write its callers or its documents. The simulated
switch is a JSON file.
.
Not for use on a switch.")
endif()
include(CPack)
