# Installs the built library into a fresh prefix, moves that prefix elsewhere, builds examples/host against it
# outside the tree, runs it, and compares every byte that it prints.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/../run.cmake)

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR}/installed ${prefix} ${WORK_DIR}/host ${WORK_DIR}/qt_host ${WORK_DIR}/own
  ${WORK_DIR}/guide ${WORK_DIR}/guide_host ${WORK_DIR}/guide_host_test ${WORK_DIR}/guide_bulk
  ${WORK_DIR}/guide_qt_host ${WORK_DIR}/guide_readme
  ${WORK_DIR}/guide_fetched ${WORK_DIR}/guide_along ${WORK_DIR}/guide_missing)

# expect_records(PROGRAM): the program prints its two records, each 160 characters wide, and no more.
function(expect_records program)
  string(REPEAT " " 8 blanks8)
  string(REPEAT " " 15 blanks15)
  string(REPEAT " " 16 blanks16)
  string(REPEAT " " 19 blanks19)
  string(REPEAT " " 70 blanks70)
  string(REPEAT " " 72 blanks72)
  string(CONCAT expected
    # head, no period, due date, filler, name to 30, title to 20, rest
    "PC40001T" "${blanks16}" "202412  " "${blanks8}" "Hélène Côté${blanks19}" "Clerk${blanks15}" "${blanks70}\n"
    "PC40001F" "01000000000000012345" "02000000000000000000" "03000000000000000000" "04000000000000000000" "${blanks72}\n")
  expect_output("${expected}" ${program})
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/installed)
file(RENAME ${WORK_DIR}/installed ${prefix})
if(HAS_PROGRAM)
  run(${prefix}/bin/fiscalon --version)
  foreach(schema IN ITEMS collect-request collect-answer)
    file(READ ${prefix}/share/fiscalon/schemas/${schema}.schema.json text)
  endforeach()
  if(HAS_QT)
    run(${prefix}/bin/fiscalon play --toolkit qt ${SOURCE_DIR}/examples/cancel.scenario)
  endif()
endif()

# Headers: what hosts are promised, below one folder, and nothing that is the library's own.
file(GLOB folders RELATIVE ${prefix}/include ${prefix}/include/*)
if(NOT folders STREQUAL "fiscalon")
  message(FATAL_ERROR "beside fiscalon/ there are headers: ${folders}")
endif()
foreach(private IN ITEMS core/logging.h core/module_state.h core/screen.h screens validation/rule_sets.h)
  if(EXISTS ${prefix}/include/fiscalon/${private})
    message(FATAL_ERROR "${private} is installed, and is no business of hosts")
  endif()
endforeach()
# A host has headers of the same names as the library's own, and meets each of the installed ones first.
file(GLOB_RECURSE headers RELATIVE ${prefix}/include ${prefix}/include/*.h)
file(GLOB promised RELATIVE ${prefix}/include ${prefix}/include/fiscalon/*.h)
foreach(name IN ITEMS core/boolean.h core/logging.h core/session.h core/forms/form.h session.h boolean.h)
  file(WRITE ${WORK_DIR}/own/${name} "#error a header of the host is taken for one of the library\n")
endforeach()
file(WRITE ${WORK_DIR}/own/everything.cpp "")
foreach(header IN LISTS headers)
  file(APPEND ${WORK_DIR}/own/everything.cpp "#include <${header}>\n")
endforeach()
foreach(header IN LISTS promised)
  file(WRITE ${WORK_DIR}/own/alone.cpp "#include <${header}>\n")
  run(${COMPILER} -std=c++20 -Wall -Wextra -Werror -fsyntax-only
    -I ${WORK_DIR}/own -I ${prefix}/include ${WORK_DIR}/own/alone.cpp)
endforeach()
run(${COMPILER} -std=c++20 -fsyntax-only -I ${WORK_DIR}/own -I ${prefix}/include ${WORK_DIR}/own/everything.cpp)

# configure(SOURCE FOLDER option...), build(SOURCE FOLDER option...): a project of the guide or of the examples, which finds
# the library as it is installed.
function(configure source folder)
  run(${CMAKE_COMMAND} -S ${source} -B ${WORK_DIR}/${folder} -G Ninja
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS} ${ARGN})
endfunction()
function(build source folder)
  configure(${source} ${folder} ${ARGN})
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/${folder})
endfunction()

build(${SOURCE_DIR}/examples/host host)
expect_records(${WORK_DIR}/host/host)

# The listings of the host guide's page for C++, word for word.
set(guide ${WORK_DIR}/guide)
run(python3 ${CMAKE_CURRENT_LIST_DIR}/listings.py ${SOURCE_DIR}/docs/host-guide-cpp.md ${guide})
build(${guide}/host guide_host)
expect_records(${WORK_DIR}/guide_host/host)
# Those whose project is the first one's but for the name.
foreach(program IN ITEMS host_test bulk)
  file(READ ${guide}/host/CMakeLists.txt text)
  string(REPLACE "add_executable(host " "add_executable(${program} " text "${text}")
  string(REPLACE "target_link_libraries(host " "target_link_libraries(${program} " text "${text}")
  file(WRITE ${guide}/${program}/CMakeLists.txt "${text}")
  build(${guide}/${program} guide_${program})
endforeach()
run(${WORK_DIR}/guide_host_test/host_test)
execute_process(COMMAND ${WORK_DIR}/guide_bulk/bulk RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result STREQUAL "0" OR NOT errors STREQUAL "" OR NOT output STREQUAL "Field 01 Amount of Payment is not equal to amount to be paid\n")
  message(FATAL_ERROR "the check in bulk ended with ${result}\nprinted:\n${output}said:\n${errors}")
endif()

# What the README shows, in a program, with a user who accepts.
run(python3 ${CMAKE_CURRENT_LIST_DIR}/listings.py ${SOURCE_DIR}/README.md ${guide})
file(READ ${guide}/readme/main.cpp listing)
file(READ ${guide}/host/CMakeLists.txt text)
string(REPLACE "host" "readme" text "${text}")
file(WRITE ${guide}/readme/CMakeLists.txt "${text}")
file(WRITE ${guide}/readme/main.cpp [[
#include <fiscalon/fiscalon.h>

#include <iostream>
#include <string>

static void Send(const std::string& record) { std::cout << record.size() << '\n'; }

int main() {
  fiscalon::ScriptedToolkit toolkit;
  toolkit.onForm = [](fiscalon::Form& form, fiscalon::UserDriver& user) {
    for (const char key : std::string("20241212345")) user.Type(key);
    user.Click(form.ControlNamed("cmdOK"));
  };
]] "${listing}" "}\n")
build(${guide}/readme guide_readme)
execute_process(COMMAND ${WORK_DIR}/guide_readme/readme RESULT_VARIABLE result OUTPUT_VARIABLE output)
if(NOT result STREQUAL "0" OR NOT output STREQUAL "160\n160\n")
  message(FATAL_ERROR "what the README shows ended with ${result}, and printed:\n${output}")
endif()

# The same program with the library built along, fetched or in the host's own tree. Compiling it all once is enough: the
# other way must only find the headers, and none but those below one folder.
file(COPY ${guide}/host/main.cpp DESTINATION ${guide}/fetched)
build(${guide}/fetched guide_fetched
  -D FETCHCONTENT_SOURCE_DIR_FISCALON=${SOURCE_DIR} -D FISCALON_JOINED=ON -D "CMAKE_CXX_FLAGS=${FLAGS} -O0 -g0")
expect_records(${WORK_DIR}/guide_fetched/host)
if(EXISTS ${WORK_DIR}/guide_fetched/_deps/fiscalon-build/tools)
  message(FATAL_ERROR "a host that builds the library along builds its programs too")
endif()
file(MAKE_DIRECTORY ${guide}/along/third_party)
file(CREATE_LINK ${SOURCE_DIR} ${guide}/along/third_party/fiscalon SYMBOLIC)
file(WRITE ${guide}/along/main.cpp [[
#include <fiscalon/fiscalon.h>
#if __has_include("core/session.h") || __has_include("core/logging.h") || __has_include("session.h")
#error the library's own headers would be taken for those of the host
#endif
]])
configure(${guide}/along guide_along)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/guide_along --target CMakeFiles/host.dir/main.cpp.o)

# A component that is not there is told by its name.
file(WRITE ${guide}/missing/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)\nproject(missing LANGUAGES CXX)\n"
  "find_package(fiscalon 1.0 REQUIRED COMPONENTS gtk)\n")
execute_process(COMMAND ${CMAKE_COMMAND} -S ${guide}/missing -B ${WORK_DIR}/guide_missing -G Ninja
  -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${COMPILER} RESULT_VARIABLE result ERROR_VARIABLE output OUTPUT_QUIET)
if(result STREQUAL "0" OR NOT output MATCHES "there is no component \"gtk\", only \"qt\", \"terminal\" and \"win32\"")
  message(FATAL_ERROR "a component that is not there ended with ${result}, and this was said:\n${output}")
endif()

# Those with windows must find and link the front end; what they do is tried at a display elsewhere.
if(HAS_QT)
  build(${SOURCE_DIR}/examples/qt_host qt_host)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY --unset=QT_QPA_PLATFORM ${WORK_DIR}/qt_host/qt_host
    RESULT_VARIABLE result ERROR_VARIABLE output)
  if(NOT result STREQUAL "1" OR NOT output MATCHES "^qt_host: there is no display to show the payment on;[^\n]*\n$")
    message(FATAL_ERROR "without a display qt_host ended with ${result}, and said:\n${output}")
  endif()
  build(${guide}/qt_host guide_qt_host)
endif()

# Nothing but the environment tells this one where a shared library lies.
set(ENV{LD_LIBRARY_PATH} ${prefix}/${LIBRARY_DIR})
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBRARY_DIR}/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs fiscalon
  OUTPUT_VARIABLE package_flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(package_flags UNIX_COMMAND "${package_flags}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
run(${COMPILER} -std=c++20 ${flags} ${SOURCE_DIR}/examples/host/main.cpp -o ${WORK_DIR}/host/by_pkg_config
  ${package_flags})
expect_records(${WORK_DIR}/host/by_pkg_config)
