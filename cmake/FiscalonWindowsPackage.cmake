# The ZIP for Windows, and beside it the SHA-256 of its bytes: the program, and the component with its type library, its
# header, its manifest, its guide and its examples, all in one folder, and below it what hosts in C++ link.
# `cpack --preset windows` makes it.
include(${CMAKE_CURRENT_LIST_DIR}/FiscalonNotices.cmake)
set(architecture x86_64)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(architecture x86)
endif()
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME fiscalon-${PROJECT_VERSION}-windows-${architecture})
set(CPACK_PACKAGE_CHECKSUM SHA256)
# The linker strips, and not the tool for it, which would write the time down.
set(CPACK_STRIP_FILES OFF)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/SignWindowsFiles.cmake)
# The order of files and their times are those of the folder that was packed.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/EvenZip.cmake @ONLY CONTENT
  "execute_process(COMMAND @Python3_EXECUTABLE@ @PROJECT_SOURCE_DIR@/tools/lib/even_zip.py \${CPACK_PACKAGE_FILES}
  COMMAND_ERROR_IS_FATAL ANY)
")
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/EvenZip.cmake)

if(TARGET fiscalon_cli)
  install(TARGETS fiscalon_cli RUNTIME DESTINATION .)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/tools/fiscalon/schemas DESTINATION .)
endif()
if(TARGET fiscalon_component)
  get_target_property(folder fiscalon_component BINARY_DIR)
  install(TARGETS fiscalon_component RUNTIME DESTINATION .)
  install(FILES ${folder}/fiscalon.tlb ${folder}/fiscalon.manifest ${folder}/fiscalon_component.h DESTINATION .)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/windows-guide.md DESTINATION .)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/windows/ DESTINATION examples)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/FiscalonDevelopment.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/FiscalonC.cmake)
set(binaries)
foreach(target IN ITEMS fiscalon_cli fiscalon_component fiscalon_c)
  if(TARGET ${target})
    list(APPEND binaries $<TARGET_FILE:${target}>)
  endif()
endforeach()
fiscalon_notices(${PROJECT_BINARY_DIR}/THIRD-PARTY.txt Unspecified ${binaries})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_BINARY_DIR}/THIRD-PARTY.txt
  DESTINATION .)
include(${CMAKE_CURRENT_LIST_DIR}/FiscalonOperatorsPage.cmake)
fiscalon_install_operators_page(. Unspecified)
include(CPack)
