# What `cmake --install` puts in place: the library, its headers with the folders they have here, a CMake
# package, a pkg-config file, man pages and shell completion. The program installs itself (tools/fiscalon).
include(CMakePackageConfigHelpers)

set(FISCALON_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/fiscalon)
set(FISCALON_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/fiscalon)

install(TARGETS fiscalon EXPORT fiscalonTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

install(DIRECTORY core screens validation DESTINATION ${FISCALON_HEADER_DIR} FILES_MATCHING PATTERN "*.h")
install(DIRECTORY frontends/played frontends/scripted DESTINATION ${FISCALON_HEADER_DIR}/frontends FILES_MATCHING PATTERN "*.h")
install(FILES include/fiscalon/fiscalon.h DESTINATION ${FISCALON_HEADER_DIR})

install(EXPORT fiscalonTargets NAMESPACE fiscalon:: DESTINATION ${FISCALON_PACKAGE_DIR})
configure_package_config_file(cmake/fiscalonConfig.cmake.in ${PROJECT_BINARY_DIR}/fiscalonConfig.cmake
  INSTALL_DESTINATION ${FISCALON_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/fiscalonConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/fiscalonConfig.cmake ${PROJECT_BINARY_DIR}/fiscalonConfigVersion.cmake
  DESTINATION ${FISCALON_PACKAGE_DIR})

# The prefix is found from where the file itself lies, so that an installed tree can be moved.
file(RELATIVE_PATH FISCALON_PREFIX_FROM_PKGCONFIG
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/fiscalon.pc.in ${PROJECT_BINARY_DIR}/fiscalon.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/fiscalon.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

file(GLOB FISCALON_MAN_PAGES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/man/*.1)
install(FILES ${FISCALON_MAN_PAGES} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
file(GLOB FISCALON_COMPLETIONS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/completions/*)
install(FILES ${FISCALON_COMPLETIONS} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
