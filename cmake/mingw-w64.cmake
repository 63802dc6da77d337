# Cross compiling for Windows with Debian's mingw-w64. What Windows does not have (SQLite, GoogleTest) is looked for in
# KORU_WINDOWS_ROOT alone; scripts/windows builds it there.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KORU_WINDOWS_ROOT)
set(CMAKE_FIND_ROOT_PATH ${KORU_WINDOWS_ROOT} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs run without the compiler's libraries, here under Wine.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_LINK_SEARCH_START_STATIC ON)
set(CMAKE_LINK_SEARCH_END_STATIC ON)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
