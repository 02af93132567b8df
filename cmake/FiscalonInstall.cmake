# What `cmake --install` puts in place, by components:
#   runtime      the shared library
#   tools        the program, its man pages, its shell completion, and the schemas of its JSON
#   qt           the program's twin, for its commands that show windows
#   desk         the payment desk, its man page, desktop entry, icon and page for operators
#   development  headers, libraries to link, CMake packages, pkg-config files
#   c            the library for hosts in C and other languages
#   c_qt         its front end with windows of Qt, which it loads when it is asked for
#   c_development its header, the library to link, a CMake package and a pkg-config file
#   documents    LICENSE, CHANGELOG, guides for users, pictures of the screens, examples
include(${CMAKE_CURRENT_LIST_DIR}/FiscalonDevelopment.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/FiscalonC.cmake)

# fiscalon_install_man(COMPONENT page...): distributions want the pages compressed.
function(fiscalon_install_man component)
  foreach(page IN LISTS ARGN)
    set(installed ${PROJECT_SOURCE_DIR}/man/${page})
    if(FISCALON_COMPRESS_MAN)
      set(installed ${PROJECT_BINARY_DIR}/man/${page}.gz)
      fiscalon_compress(${PROJECT_SOURCE_DIR}/man/${page} ${installed})
    endif()
    install(FILES ${installed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
  endforeach()
endfunction()
# fiscalon_compress(FROM TO): as small as it gets, the same at any time.
function(fiscalon_compress from to)
  cmake_path(GET to PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  execute_process(COMMAND gzip -9nc ${from} OUTPUT_FILE ${to} COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${from})
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/FiscalonOperatorsPage.cmake)

if(TARGET fiscalon_cli)
  install(TARGETS fiscalon_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  file(GLOB pages CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/man ${PROJECT_SOURCE_DIR}/man/*.1)
  list(REMOVE_ITEM pages fiscalon-desk.1)
  fiscalon_install_man(tools ${pages})
  install(FILES ${PROJECT_SOURCE_DIR}/completions/fiscalon
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
  # Where zsh looks for what distributions bring, and for what an administrator installs.
  set(zsh_folder site-functions)
  if(FISCALON_PACKAGES)
    set(zsh_folder vendor-completions)
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/completions/_fiscalon
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${zsh_folder} COMPONENT tools)
  install(FILES ${PROJECT_SOURCE_DIR}/completions/fiscalon.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tools)
  # What programs send to `fiscalon collect --json` and get from it.
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/tools/fiscalon/schemas
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fiscalon COMPONENT tools)
  # What F1 of both desks opens belongs to the programs: documents may be left out of an installation.
  fiscalon_install_operators_page(${CMAKE_INSTALL_DATADIR}/fiscalon tools)
endif()
if(TARGET fiscalon_cli_qt)
  install(TARGETS fiscalon_cli_qt RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/fiscalon COMPONENT qt)
endif()
if(TARGET fiscalon_desk)
  install(TARGETS fiscalon_desk RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT desk)
  fiscalon_install_man(desk fiscalon-desk.1)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/desk/fiscalon-desk.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desk)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/desk/fiscalon-desk.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desk)
endif()

# For whoever uses what is installed. What is for work on the project names its sources, and stays with them.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)
file(GLOB host_guides CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/host-guide*.md)
install(FILES ${host_guides} ${PROJECT_SOURCE_DIR}/docs/batch-guide.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT documents)
fiscalon_install_operators_page(${CMAKE_INSTALL_DOCDIR}/docs documents)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/screens DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT documents)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)
