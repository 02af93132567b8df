# Gathers the headers that hosts are promised, and what these include, and nothing else, as they are installed: all of
# them below one folder "fiscalon", which they name when they include each other. So only that one name is taken from a
# host, and a header of its own may have any other.
# What they declare is written as a list of names for the linker.
#   cmake -D SOURCE_DIR=... -D STAGE_DIR=... -D NAMES=... -D "HEADERS=include/fiscalon/fiscalon.h;..." -P StageHeaders.cmake
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
  # Types and routines of the namespace begin their lines. Those of the language have no braces or ends of statements in
  # their names, so what is declared ahead only is told from what is defined.
  string(REGEX MATCHALL "\n(class|struct) [A-Za-z0-9_]+[^;{]*{" types "${text}")
  foreach(type IN LISTS types)
    string(REGEX REPLACE "\n(class|struct) ([A-Za-z0-9_]+).*" "\\2" type "${type}")
    # A blank goes as "?" where patterns can have none.
    list(APPEND names fiscalon::${type}::* typeinfo?for?fiscalon::${type} typeinfo?name?for?fiscalon::${type}
      vtable?for?fiscalon::${type} non-virtual?thunk?to?fiscalon::${type}::*)
  endforeach()
  string(REGEX MATCHALL "\n[^ \n/#}][^;{}()\n]* [&*]?[A-Za-z0-9_]+\\(" routines "${text}")
  foreach(routine IN LISTS routines)
    string(REGEX REPLACE ".*[ &*]([A-Za-z0-9_]+)\\($" "\\1" routine "${routine}")
    list(APPEND names fiscalon::${routine}*)
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
list(SORT names)
list(REMOVE_DUPLICATES names)
list(JOIN names ";\n" names)
file(WRITE ${STAGE_DIR}.new "{\nglobal: extern \"C++\" {\n${names};\n};\nlocal: *;\n};\n")
file(COPY_FILE ${STAGE_DIR}.new ${NAMES} ONLY_IF_DIFFERENT)
file(REMOVE ${STAGE_DIR}.new)

file(GLOB_RECURSE before RELATIVE ${STAGE_DIR} ${STAGE_DIR}/*)
foreach(place IN LISTS before)
  if(NOT place IN_LIST places)
    file(REMOVE ${STAGE_DIR}/${place})
  endif()
endforeach()
