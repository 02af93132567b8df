# The tools that build for 32-bit Windows.
set(FISCALON_WINDOWS_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/Windows.cmake)

# Floats of 64 bits as everywhere, not the longer ones of the old unit; callers may align the stack to four bytes only.
string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse -mstackrealign")
