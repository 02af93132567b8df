# The headers that hosts are promised. What they include comes with them, and everything else is the library's own: a host
# that builds us finds in the build tree what another finds installed, one folder of headers, and none beside it.
set(FISCALON_PROMISED_HEADERS
  include/fiscalon/fiscalon.h
  include/fiscalon/batch.h
  include/fiscalon/front_end.h
  include/fiscalon/scripted.h)
if(FISCALON_QT)
  list(APPEND FISCALON_PROMISED_HEADERS include/fiscalon/qt.h)
endif()
if(WIN32)
  list(APPEND FISCALON_PROMISED_HEADERS include/fiscalon/win32.h)
elseif(FISCALON_TERMINAL)
  list(APPEND FISCALON_PROMISED_HEADERS include/fiscalon/terminal.h)
endif()

file(GLOB_RECURSE headers CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/include/*.h ${PROJECT_SOURCE_DIR}/core/*.h ${PROJECT_SOURCE_DIR}/validation/*.h
  ${PROJECT_SOURCE_DIR}/frontends/*.h)
set(staged ${PROJECT_BINARY_DIR}/headers/staged)
# And what they declare, for the linker of a shared library.
set(FISCALON_PROMISED_NAMES ${PROJECT_BINARY_DIR}/headers/promised.map)
add_custom_command(OUTPUT ${staged} ${FISCALON_PROMISED_NAMES}
  COMMAND ${CMAKE_COMMAND} -D SOURCE_DIR=${PROJECT_SOURCE_DIR} -D STAGE_DIR=${PROJECT_BINARY_DIR}/headers/fiscalon
    -D "HEADERS=${FISCALON_PROMISED_HEADERS}" -D NAMES=${FISCALON_PROMISED_NAMES} -P ${PROJECT_SOURCE_DIR}/cmake/StageHeaders.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${staged}
  DEPENDS ${headers} ${PROJECT_SOURCE_DIR}/cmake/StageHeaders.cmake
  COMMENT "Gathering the headers of hosts"
  VERBATIM)
add_custom_target(fiscalon_headers DEPENDS ${staged})
