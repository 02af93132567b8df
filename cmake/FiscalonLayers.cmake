# Layers: one target per folder. A layer sees only the layers that it names, so an include or a call
# in the wrong direction does not link in that layer's own tests.

set(FISCALON_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast)
# GCC 12 takes a concatenation of texts, optimised, for a copy onto itself or past the end of one.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND FISCALON_WARNINGS -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow)
endif()
# With its sanitizers GCC doubts that the standard library's own variables are set.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_DEBUG}" MATCHES "-fsanitize=")
  list(APPEND FISCALON_WARNINGS -Wno-maybe-uninitialized)
endif()
# What the product is made of costs nothing when it is loaded: tables are the compiler's. (GCC has no such warning.)
option(FISCALON_WARN_OF_LOADING "Warn of what is constructed when the library or a program is loaded (Clang only)" OFF)
option(FISCALON_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ${PROJECT_IS_TOP_LEVEL})
if(FISCALON_WARNINGS_AS_ERRORS)
  list(APPEND FISCALON_WARNINGS -Werror)
endif()

# What a build takes is parsing: the same headers for each source. Joined, a source that forgets an include goes unnoticed,
# which presets that leave it off find.
option(FISCALON_JOINED "Compile several sources as one, and headers that nearly all read beforehand" OFF)

# fiscalon_compile_settings(TARGET): how sources of ours are compiled.
function(fiscalon_compile_settings target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  # For our own sources alone: a host that links us has headers of these names too.
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
  target_compile_options(${target} PRIVATE ${FISCALON_WARNINGS})
  # What is given out names no folder of whoever built it, and is the same from any. (Debuggers want the folders.)
  set(nameless -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -ffile-prefix-map=${PROJECT_BINARY_DIR}/=build/)
  target_compile_options(${target} PRIVATE "$<$<NOT:$<CONFIG:Debug>>:${nameless}>")
  if(FISCALON_WARN_OF_LOADING)
    target_compile_options(${target} PRIVATE -Wglobal-constructors)
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX STRICT
      _FILE_OFFSET_BITS=64)  # files of more than 2 GiB
  endif()
  if(FISCALON_JOINED)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 10)
  endif()
endfunction()

# fiscalon_precompile(TARGET GROUP header...): compiles these headers once, for the first target of the group; the others,
# which have the same compiler's options, take them from there.
function(fiscalon_precompile target group)
  # Others but GCC take a precompiled header only where all options are those that it was made with.
  if(NOT FISCALON_JOINED OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
  endif()
  get_property(owner GLOBAL PROPERTY FISCALON_PRECOMPILED_${group})
  if(owner)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    set_property(GLOBAL PROPERTY FISCALON_PRECOMPILED_${group} ${target})
  endif()
  target_compile_options(${target} PRIVATE -fpch-preprocess)  # ccache asks for it
endfunction()

# fiscalon_standard_headers(TARGET): of the standard library, for all but programs, whose code is of another kind.
function(fiscalon_standard_headers target)
  fiscalon_precompile(${target} standard
    <algorithm> <array> <filesystem> <functional> <map> <memory> <optional> <string> <string_view> <vector>)
endfunction()

# fiscalon_layer(NAME [HIDDEN] [DEPENDS layer...] SOURCES file...): one folder. What a hidden one declares is for the layers
# above it and our own programs alone: nothing that the compiler makes of it is offered by a shared library.
function(fiscalon_layer name)
  cmake_parse_arguments(layer "HIDDEN" "" "DEPENDS;SOURCES" ${ARGN})
  add_library(fiscalon_${name}_objects OBJECT ${layer_SOURCES})
  fiscalon_compile_settings(fiscalon_${name}_objects)
  fiscalon_standard_headers(fiscalon_${name}_objects)
  if(layer_HIDDEN)
    set_target_properties(fiscalon_${name}_objects PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  endif()
  add_library(fiscalon_${name} STATIC $<TARGET_OBJECTS:fiscalon_${name}_objects>)
  set_target_properties(fiscalon_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_compile_features(fiscalon_${name} PUBLIC cxx_std_20)
  foreach(dependency IN LISTS layer_DEPENDS)
    target_link_libraries(fiscalon_${name} PUBLIC fiscalon_${dependency})
  endforeach()
endfunction()

# fiscalon_library(NAME LAYERS layer...): the one library that hosts link, made of the layers' objects.
# (Its install rules stand in cmake/FiscalonInstall.cmake.)
function(fiscalon_library name)
  cmake_parse_arguments(library "" "" "LAYERS" ${ARGN})
  set(objects)
  foreach(layer IN LISTS library_LAYERS)
    list(APPEND objects $<TARGET_OBJECTS:fiscalon_${layer}_objects>)
  endforeach()
  add_library(${name} ${objects})
  add_library(fiscalon::${name} ALIAS ${name})
  # A minor version may change the interface; docs/packaging.md tells what is promised.
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/headers>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  add_dependencies(${name} fiscalon_headers)
  fiscalon_promised_names(${name})
  fiscalon_own(${name} OBJECTS ${objects})
endfunction()

# fiscalon_promised_names(NAME): as a shared library it offers what the headers of hosts declare, and nothing else.
function(fiscalon_promised_names name)
  get_target_property(kind ${name} TYPE)
  if(kind STREQUAL "SHARED_LIBRARY" AND NOT WIN32)
    target_link_options(${name} PRIVATE -Wl,--version-script=${FISCALON_PROMISED_NAMES})
    set_target_properties(${name} PROPERTIES LINK_DEPENDS ${FISCALON_PROMISED_NAMES})
    add_dependencies(${name} fiscalon_headers)
  endif()
endfunction()

# fiscalon_own(NAME OBJECTS object... [LIBRARIES library...]): a library for our own programs and tests, which use more of
# it than hosts are promised. Where it is a shared one, they are linked with what it is made of.
function(fiscalon_own name)
  cmake_parse_arguments(own "" "" "OBJECTS;LIBRARIES" ${ARGN})
  if(NOT BUILD_SHARED_LIBS)
    add_library(${name}_own ALIAS ${name})
    return()
  endif()
  add_library(${name}_own STATIC EXCLUDE_FROM_ALL ${own_OBJECTS})
  set_target_properties(${name}_own PROPERTIES LINKER_LANGUAGE CXX)
  target_compile_features(${name}_own PUBLIC cxx_std_20)
  target_link_libraries(${name}_own PUBLIC ${own_LIBRARIES})
endfunction()
