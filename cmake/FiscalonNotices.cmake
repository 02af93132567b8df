# fiscalon_notices(FILE COMPONENT argument...): while a package is made, writes the notices of what others wrote of its
# binaries, which are read for that. The arguments are those of tools/lib/notices.py.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
function(fiscalon_notices file component)
  list(JOIN ARGN "\" \"" arguments)
  install(CODE "
    execute_process(COMMAND \"${Python3_EXECUTABLE}\" \"${PROJECT_SOURCE_DIR}/tools/lib/notices.py\" --out \"${file}\"
      \"${arguments}\" COMMAND_ERROR_IS_FATAL ANY)"
    COMPONENT ${component})
endfunction()
