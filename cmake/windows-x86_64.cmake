# The tools that build for 64-bit Windows.
set(FISCALON_WINDOWS_TRIPLET x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/Windows.cmake)
