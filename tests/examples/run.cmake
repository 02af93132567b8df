# What the tests of hosts that are built against what is installed run programs by.

# run(PROGRAM ARGUMENT...): it must end well.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result STREQUAL "0")
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
  endif()
endfunction()

# expect_output(TEXT PROGRAM...): all that it prints, and that it ends well.
function(expect_output expected)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result STREQUAL "0" OR NOT errors STREQUAL "" OR NOT output STREQUAL expected)
    message(FATAL_ERROR "${ARGN} ended with ${result}\nexpected:\n${expected}printed:\n${output}said:\n${errors}")
  endif()
endfunction()
