# The pages of what hosts are promised, by Doxygen, and their installation beside the guides.
find_program(DOXYGEN_PROGRAM doxygen)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
if(NOT DOXYGEN_PROGRAM)
  message(FATAL_ERROR "FISCALON_API_PAGES needs Doxygen, on Debian the package doxygen")
endif()

set(FISCALON_API_PAGES_DIR ${PROJECT_BINARY_DIR}/api)
file(GLOB inputs CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/api/*
  ${PROJECT_SOURCE_DIR}/component/*.idl
  ${PROJECT_SOURCE_DIR}/bindings/python/fiscalon/*.py
  ${PROJECT_SOURCE_DIR}/bindings/dotnet/Fiscalon.cs
  ${PROJECT_SOURCE_DIR}/tools/lib/api_*.py)
add_custom_command(OUTPUT ${FISCALON_API_PAGES_DIR}/index.html
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/lib/api_pages.py
    --headers ${PROJECT_BINARY_DIR}/headers/fiscalon --version ${PROJECT_VERSION} --out ${FISCALON_API_PAGES_DIR}
  DEPENDS ${PROJECT_BINARY_DIR}/headers/staged ${inputs}
  COMMENT "Writing the API pages"
  VERBATIM)
add_custom_target(fiscalon_api_pages ALL DEPENDS ${FISCALON_API_PAGES_DIR}/index.html)
add_dependencies(fiscalon_api_pages fiscalon_headers)

install(DIRECTORY ${FISCALON_API_PAGES_DIR} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT documents)
