# What hosts in C and in other languages load, and what those in C build with. It has a CMake package of its own: whoever
# has the C interface needs nothing of the C++ one.
if(TARGET fiscalon_c)
  install(TARGETS fiscalon_c EXPORT fiscalonCTargets
    RUNTIME DESTINATION . COMPONENT c
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT c NAMELINK_COMPONENT c_development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT c_development)
  set(FISCALON_C_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/fiscalon-c)
  install(EXPORT fiscalonCTargets FILE fiscalon-cConfig.cmake NAMESPACE fiscalon::
    DESTINATION ${FISCALON_C_PACKAGE_DIR} COMPONENT c_development)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/fiscalon-cConfigVersion.cmake COMPATIBILITY AnyNewerVersion)
  install(FILES ${PROJECT_BINARY_DIR}/fiscalon-cConfigVersion.cmake
    DESTINATION ${FISCALON_C_PACKAGE_DIR} COMPONENT c_development)
  install(FILES ${PROJECT_SOURCE_DIR}/include/fiscalon/c.h DESTINATION ${FISCALON_HEADER_DIR} COMPONENT c_development)
  fiscalon_install_pkgconfig(fiscalon-c c_development)
  # What hosts in C# compile into themselves.
  set(folder ${CMAKE_INSTALL_DATADIR}/fiscalon/dotnet)
  if(WIN32)
    set(folder dotnet)
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/bindings/dotnet/Fiscalon.cs DESTINATION ${folder} COMPONENT c_development)
endif()
if(TARGET fiscalon_c_qt)
  install(TARGETS fiscalon_c_qt LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/fiscalon-c/${PROJECT_VERSION} COMPONENT c_qt)
endif()
