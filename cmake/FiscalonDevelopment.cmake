# What hosts in C++ build with: headers, libraries to link, CMake packages, pkg-config files.
include(CMakePackageConfigHelpers)

set(FISCALON_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/fiscalon)
set(FISCALON_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/fiscalon)
set(FISCALON_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(FISCALON_OBJECT_DIR ${CMAKE_INSTALL_LIBDIR}/fiscalon)

# fiscalon_install_library(TARGET EXPORT): a library, and the CMake package file that names it.
function(fiscalon_install_library target export)
  install(TARGETS ${target} EXPORT ${export}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(EXPORT ${export} NAMESPACE fiscalon:: DESTINATION ${FISCALON_PACKAGE_DIR} COMPONENT development)
endfunction()

# The prefix is found from where the file itself lies, so that an installed tree can be moved.
file(RELATIVE_PATH FISCALON_PREFIX_FROM_PKGCONFIG
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
# fiscalon_install_pkgconfig(NAME [COMPONENT])
function(fiscalon_install_pkgconfig name)
  set(component ${ARGN} development)
  list(GET component 0 component)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${FISCALON_PKGCONFIG_DIR} COMPONENT ${component})
endfunction()

install(DIRECTORY ${PROJECT_BINARY_DIR}/headers/fiscalon/ DESTINATION ${FISCALON_HEADER_DIR} COMPONENT development)

fiscalon_install_library(fiscalon fiscalonTargets)
fiscalon_install_pkgconfig(fiscalon)
if(TARGET fiscalon_qt)
  fiscalon_install_library(fiscalon_qt fiscalonQtTargets)
  # Who links the shared front end links no Qt for it.
  get_target_property(kind fiscalon_qt TYPE)
  set(FISCALON_QT_REQUIRES "fiscalon = ${PROJECT_VERSION}")
  set(FISCALON_QT_REQUIRES_PRIVATE "Qt6Widgets >= 6.4")
  if(kind STREQUAL "STATIC_LIBRARY")
    string(APPEND FISCALON_QT_REQUIRES ", ${FISCALON_QT_REQUIRES_PRIVATE}")
    set(FISCALON_QT_REQUIRES_PRIVATE "")
  endif()
  fiscalon_install_pkgconfig(fiscalon-qt)
endif()
if(TARGET fiscalon_terminal)
  fiscalon_install_library(fiscalon_terminal fiscalonTerminalTargets)
  get_property(FISCALON_TERMINFO GLOBAL PROPERTY FISCALON_TERMINFO)
  fiscalon_install_pkgconfig(fiscalon-terminal)
endif()
if(TARGET fiscalon_win32)
  fiscalon_install_library(fiscalon_win32 fiscalonWin32Targets)
  fiscalon_install_pkgconfig(fiscalon-win32)
  # Compiled, so that a host needs no compiler of resources.
  install(FILES $<TARGET_OBJECTS:fiscalon_common_controls> DESTINATION ${FISCALON_OBJECT_DIR} COMPONENT development
    RENAME common_controls.o)
endif()
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/fiscalonConfig.cmake.in
  ${PROJECT_BINARY_DIR}/fiscalonConfig.cmake INSTALL_DESTINATION ${FISCALON_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/fiscalonConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/fiscalonConfig.cmake ${PROJECT_BINARY_DIR}/fiscalonConfigVersion.cmake
  DESTINATION ${FISCALON_PACKAGE_DIR} COMPONENT development)
