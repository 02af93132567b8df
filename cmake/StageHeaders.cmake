# Gathers the headers that hosts are promised, and what these include, and nothing else, as they are installed: all of
# them below one folder "fiscalon", which they name when they include each other. So only that one name is taken from a
# host, and a header of its own may have any other.
#   cmake -D SOURCE_DIR=... -D STAGE_DIR=... -D "HEADERS=include/fiscalon/fiscalon.h;..." -P StageHeaders.cmake
cmake_minimum_required(VERSION 3.25)

set(todo ${HEADERS})
set(staged "")
set(places "")
while(todo)
  list(POP_FRONT todo header)
  if(header IN_LIST staged)
    continue()
  endif()
  list(APPEND staged ${header})
  file(READ ${SOURCE_DIR}/${header} text)
  # No list: a header holds semicolons and brackets.
  string(REGEX MATCHALL "#include \"[^\"]+\"" includes "${text}")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "#include \"([^\"]+)\"" "\\1" included "${include}")
    if(NOT EXISTS ${SOURCE_DIR}/${included})
      message(FATAL_ERROR "${header} includes ${included}, which is not there")
    endif()
    list(APPEND todo ${included})
  endforeach()
  string(REGEX REPLACE "#include \"([^\"]+)\"" "#include \"fiscalon/\\1\"" text "${text}")
  string(REGEX REPLACE "^include/fiscalon/" "" place "${header}")
  # Whoever includes a header that is as it was need not be compiled again.
  list(APPEND places ${place})
  file(WRITE ${STAGE_DIR}.new "${text}")
  cmake_path(GET place PARENT_PATH folder)
  file(MAKE_DIRECTORY ${STAGE_DIR}/${folder})
  file(COPY_FILE ${STAGE_DIR}.new ${STAGE_DIR}/${place} ONLY_IF_DIFFERENT)
endwhile()
file(REMOVE ${STAGE_DIR}.new)

file(GLOB_RECURSE before RELATIVE ${STAGE_DIR} ${STAGE_DIR}/*)
foreach(place IN LISTS before)
  if(NOT place IN_LIST places)
    file(REMOVE ${STAGE_DIR}/${place})
  endif()
endforeach()
