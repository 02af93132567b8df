# What both toolchain files share: MinGW-w64 on another system. Of the two kinds that Debian has, the one whose
# standard library has threads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_CXX_COMPILER ${FISCALON_WINDOWS_TRIPLET}-g++-posix)
set(CMAKE_C_COMPILER ${FISCALON_WINDOWS_TRIPLET}-gcc-posix)
set(CMAKE_RC_COMPILER ${FISCALON_WINDOWS_TRIPLET}-windres)
# What is built runs under Wine, which has the 64-bit kind.
if(FISCALON_WINDOWS_TRIPLET MATCHES "^x86_64")
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/lib/wine.sh)
endif()

# Programs of the building system, libraries and headers of the other. Packages without code are found in both.
set(CMAKE_FIND_ROOT_PATH /usr/${FISCALON_WINDOWS_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# One file that needs nothing but the system's own libraries, without what nothing refers to, and the same at any time.
set(CMAKE_CXX_FLAGS_INIT "-ffunction-sections -fdata-sections")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--gc-sections -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--gc-sections -Wl,--no-insert-timestamp")
