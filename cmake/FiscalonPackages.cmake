# Debian packages of what is installed: cmake --preset package && cmake --build --preset package, then cpack in
# build/package. That preset has the choices that distributions want: a shared library, the folders of /usr, no path to
# a library in a program, man pages compressed.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME fiscalon)
set(CPACK_PACKAGE_VENDOR Fiscalon)
set(CPACK_PACKAGE_CONTACT "Fiscalon contributors <fiscalon@fiscalon.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Each package has a first line of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL runtime tools qt desk c c_qt c_development python development documents)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What programs need is read from them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(interface ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(library libfiscalon${interface})
# Of the same version, whichever time it was packed.
math(EXPR next_patch "${PROJECT_VERSION_PATCH} + 1")
set(same_version "(>= ${PROJECT_VERSION})" "(<< ${interface}.${next_patch}~)")
list(TRANSFORM same_version PREPEND "${library} " OUTPUT_VARIABLE same_library)
list(JOIN same_library ", " same_library)
list(TRANSFORM same_version PREPEND "fiscalon-tools " OUTPUT_VARIABLE same_tools)
list(JOIN same_tools ", " same_tools)

# The papers that each package must bear: a copyright file, with the notices of what others wrote of its program, and a
# changelog.
set(papers ${PROJECT_BINARY_DIR}/debian)
file(CONFIGURE OUTPUT ${papers}/changelog @ONLY CONTENT
"fiscalon (@PROJECT_VERSION@) unstable; urgency=medium

  * Version @PROJECT_VERSION@; CHANGELOG.md, in libfiscalon-dev, tells what is new.

 -- @CPACK_PACKAGE_CONTACT@  Thu, 01 Jan 2026 00:00:00 +0000
")
fiscalon_compress(${papers}/changelog ${papers}/changelog.gz)

include(${CMAKE_CURRENT_LIST_DIR}/FiscalonNotices.cmake)

# fiscalon_package(GROUP COMPONENT NAME SECTION SUMMARY TEXT [program]): one Debian package.
function(fiscalon_package group component name section summary text)
  string(TOUPPER ${group} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${text}" PARENT_SCOPE)
  set(program)
  if(ARGN)
    set(program $<TARGET_FILE:${ARGN}>)
  endif()
  fiscalon_notices(${papers}/${name}/copyright ${component} --debian ${PROJECT_SOURCE_DIR}/LICENSE ${program})
  install(FILES ${papers}/${name}/copyright ${papers}/changelog.gz DESTINATION share/doc/${name} COMPONENT ${component})
endfunction()

fiscalon_package(library runtime ${library} libs "forms for the details of government remittances, to be loaded"
"Forms that ask for what a remittance to a Canadian authority needs beside the
payment, and the check of such records. This is the library that programs load.")
# CPack would write maintainer scripts that call ldconfig, where the policy wants a trigger. It writes none if it does
# not look into the library, so what the library needs and offers is stated here.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS OFF)
file(CONFIGURE OUTPUT ${papers}/triggers CONTENT "activate-noawait ldconfig\n")
file(CONFIGURE OUTPUT ${papers}/shlibs @ONLY CONTENT "libfiscalon @interface@ @library@ (>= @PROJECT_VERSION@)\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${papers}/triggers ${papers}/shlibs)
set(CPACK_DEBIAN_C_PACKAGE_SHLIBDEPS OFF)
file(CONFIGURE OUTPUT ${papers}/c/shlibs @ONLY CONTENT "libfiscalon-c 1 libfiscalon-c1 (>= @PROJECT_VERSION@)\n")
set(CPACK_DEBIAN_C_PACKAGE_CONTROL_EXTRA ${papers}/triggers ${papers}/c/shlibs)
file(CONFIGURE OUTPUT ${papers}/control @ONLY CONTENT "Source: fiscalon\n\nPackage: @library@\nArchitecture: any\n")
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/LibraryNeeds.cmake @ONLY CONTENT [[
function(needs_of library place)
  execute_process(COMMAND dpkg-shlibdeps -O ${library}
    WORKING_DIRECTORY "@PROJECT_BINARY_DIR@" OUTPUT_VARIABLE needs COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^shlibs:Depends=([^\n]*).*" "\\1" needs "${needs}")
  set(${place} "${needs}" PARENT_SCOPE)
endfunction()
needs_of("@PROJECT_BINARY_DIR@/libfiscalon.so.@PROJECT_VERSION@" CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS)
needs_of("@PROJECT_BINARY_DIR@/bindings/c/libfiscalon-c.so.1" CPACK_DEBIAN_C_PACKAGE_DEPENDS)
]])
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_BINARY_DIR}/LibraryNeeds.cmake)

fiscalon_package(development development libfiscalon-dev libdevel
"headers and guides for programs that show forms of remittances"
"Headers, CMake packages and pkg-config files for programs that show forms of
government remittances, with guides and examples. The front end with windows is
linked into the program, which needs Qt 6.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${same_library}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "qt6-base-dev, libncurses-dev, fiscalon-tools")

fiscalon_package(tools tools fiscalon-tools utils "checks and shows records of government remittances"
"The program fiscalon takes record files apart, judges single payments and whole
batches, and plays scenarios of forms without a display."
fiscalon_cli)
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS fiscalon-tools-qt)

fiscalon_package(qt qt fiscalon-tools-qt utils "collects and plays remittances in windows of Qt"
"What the program fiscalon needs for its commands that show windows: payments
that are collected, pictures of forms, and scenarios played on real widgets."
fiscalon_cli_qt)
# The program starts it.
set(CPACK_DEBIAN_QT_PACKAGE_DEPENDS "${same_tools}")

fiscalon_package(desk desk fiscalon-desk misc "payment desk that tries the forms of remittances out"
"A small host program with one window: a payment to change, all screens to show,
and the records that they hand back, taken apart."
fiscalon_desk)
set(CPACK_DEBIAN_DESK_PACKAGE_DEPENDS fiscalon-tools)

# Of the C interface, whose promise the library's version does not touch.
set(same_c_library "libfiscalon-c1 (>= ${PROJECT_VERSION}), libfiscalon-c1 (<< ${interface}.${next_patch}~)")
fiscalon_package(c c libfiscalon-c1 libs "details of government remittances for programs in any language"
"Forms that ask for what a remittance to a Canadian authority needs beside the
payment, and the check of such records, by an interface in C that stays the
same. This is the library that programs load."
fiscalon_c)
set(CPACK_DEBIAN_C_PACKAGE_SUGGESTS libfiscalon-c-qt)
fiscalon_package(c_qt c_qt libfiscalon-c-qt libs "windows of Qt for the details of government remittances"
"What libfiscalon-c1 needs to show its forms in windows. It is loaded when a
program asks for the front end qt."
fiscalon_c_qt)
set(CPACK_DEBIAN_C_QT_PACKAGE_DEPENDS "${same_c_library}")
fiscalon_package(c_development c_development libfiscalon-c-dev libdevel
"header for programs in C that show forms of remittances"
"The header, a CMake package and a pkg-config file for programs in C, and in
languages that call C, that show forms of government remittances.")
set(CPACK_DEBIAN_C_DEVELOPMENT_PACKAGE_DEPENDS "${same_c_library}")
set(CPACK_DEBIAN_C_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_C_DEVELOPMENT_PACKAGE_SUGGESTS libfiscalon-c-qt)

fiscalon_package(python python python3-fiscalon python "details of government remittances for programs in Python"
"A typed package over libfiscalon-c1: forms that ask for what a remittance to a
Canadian authority needs beside the payment, the check of such records and of
whole batches, and fixtures for pytest.")
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3:any (>= 3.8), libfiscalon-c1 (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "libfiscalon-c-qt, fiscalon-tools, python3-pytest")
# What Python compiles beside the modules comes and goes with them.
file(CONFIGURE OUTPUT ${papers}/python/postinst CONTENT "#!/bin/sh\nset -e\n[ \"$1\" != configure ] || py3compile -p python3-fiscalon\n" @ONLY)
file(CONFIGURE OUTPUT ${papers}/python/prerm CONTENT "#!/bin/sh\nset -e\npy3clean -p python3-fiscalon\n" @ONLY)
file(CHMOD ${papers}/python/postinst ${papers}/python/prerm PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${papers}/python/postinst ${papers}/python/prerm)

include(CPack)
foreach(group IN ITEMS library development tools qt desk c c_qt c_development python)
  cpack_add_component_group(${group})
endforeach()
cpack_add_component(runtime GROUP library)
cpack_add_component(development GROUP development)
cpack_add_component(documents GROUP development)
cpack_add_component(tools GROUP tools)
cpack_add_component(qt GROUP qt)
cpack_add_component(desk GROUP desk)
cpack_add_component(c GROUP c)
cpack_add_component(c_qt GROUP c_qt)
cpack_add_component(c_development GROUP c_development)
cpack_add_component(python GROUP python)
