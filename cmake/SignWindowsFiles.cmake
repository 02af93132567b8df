# Signs programs and libraries before they are packed, by the command in FISCALON_SIGN, which takes a file's name and
# signs it in its place. The key is the publisher's: without that command nothing is signed.
if(NOT "$ENV{FISCALON_SIGN}" STREQUAL "")
  separate_arguments(sign UNIX_COMMAND "$ENV{FISCALON_SIGN}")
  file(GLOB_RECURSE binaries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.dll ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.exe)
  foreach(binary IN LISTS binaries)
    execute_process(COMMAND ${sign} ${binary} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endif()
