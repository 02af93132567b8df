# Installs the C interface alone into a fresh prefix, moves that prefix elsewhere, builds hosts against it outside the tree,
# runs them, and compares every byte that they print.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/../run.cmake)

set(prefix ${WORK_DIR}/prefix)
set(guide ${WORK_DIR}/guide)
file(REMOVE_RECURSE ${WORK_DIR}/installed ${prefix} ${guide} ${WORK_DIR}/example ${WORK_DIR}/guide_host)

foreach(component IN ITEMS c c_qt c_development)
  run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/installed --component ${component})
endforeach()
file(RENAME ${WORK_DIR}/installed ${prefix})

# Nothing of C++ comes along.
file(GLOB_RECURSE installed RELATIVE ${prefix} ${prefix}/*)
set(expected
  include/fiscalon/c.h
  ${LIBRARY_DIR}/cmake/fiscalon-c/fiscalon-cConfig.cmake
  ${LIBRARY_DIR}/cmake/fiscalon-c/fiscalon-cConfigVersion.cmake
  ${LIBRARY_DIR}/libfiscalon-c.so
  ${LIBRARY_DIR}/libfiscalon-c.so.1
  ${LIBRARY_DIR}/pkgconfig/fiscalon-c.pc
  share/fiscalon/dotnet/Fiscalon.cs)
if(HAS_QT)
  list(APPEND expected ${LIBRARY_DIR}/fiscalon-c/${VERSION}/front-end-qt.so)
endif()
list(FILTER installed EXCLUDE REGEX "fiscalon-cConfig-[a-z]+\\.cmake$")
list(FILTER installed EXCLUDE REGEX "share/doc/")
list(SORT installed)
list(SORT expected)
if(NOT installed STREQUAL expected)
  message(FATAL_ERROR "the C interface installs\n${installed}\nand not\n${expected}")
endif()

run(python3 ${SOURCE_DIR}/tests/examples/host/listings.py ${SOURCE_DIR}/docs/host-guide-c.md ${guide})

string(REPEAT " " 8 blanks8)
string(REPEAT " " 15 blanks15)
string(REPEAT " " 16 blanks16)
string(REPEAT " " 19 blanks19)
string(REPEAT " " 70 blanks70)
string(REPEAT " " 72 blanks72)
string(CONCAT records
  # head, no period, due date, filler, name to 30, title to 20, rest
  "PC40001T" "${blanks16}" "202412  " "${blanks8}" "Hélène Côté${blanks19}" "Clerk${blanks15}" "${blanks70}\n"
  "PC40001F" "01000000000000012345" "02000000000000000000" "03000000000000000000" "04000000000000000000" "${blanks72}\n")

function(build source folder)
  # A sanitizer wants to be linked by the program too.
  run(${CMAKE_COMMAND} -S ${source} -B ${WORK_DIR}/${folder} -G Ninja -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_C_FLAGS=${FLAGS})
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/${folder})
endfunction()
build(${SOURCE_DIR}/examples/c_host example)
expect_output("${records}" ${WORK_DIR}/example/host)
build(${guide}/host guide_host)
expect_output("${records}" ${WORK_DIR}/guide_host/host)

# The others by pkg-config, as strictly as C is compiled.
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBRARY_DIR}/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs fiscalon-c OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${FLAGS} ${flags}")
foreach(program IN ITEMS host_test bulk)
  run(cc -std=c99 -pedantic-errors -Wall -Wextra -Werror ${guide}/${program}/main.c -o ${guide}/${program}/${program}
    ${flags} -Wl,-rpath,${prefix}/${LIBRARY_DIR})
endforeach()
expect_output("" ${guide}/host_test/host_test)
expect_output("valid\n0001: Field 01 Amount of Payment is not equal to amount to be paid\n1 of 1 invalid\n"
  ${guide}/bulk/bulk)
