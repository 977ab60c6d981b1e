# Builds for 64-bit Windows on Debian: the POSIX threads' cross compiler, everything linked in, and what is built run by
# Wine. Libraries come from the prefix that tools/windows/libraries.sh fills.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

get_filename_component(VELMORA_WINDOWS_PREFIX ${CMAKE_CURRENT_LIST_DIR}/../../build/windows-libraries/prefix ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${VELMORA_WINDOWS_PREFIX} /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${VELMORA_WINDOWS_PREFIX}/lib/pkgconfig)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)
