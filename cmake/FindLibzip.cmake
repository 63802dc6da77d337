# The library that unpacks workbooks. Its own package for CMake demands its programs as well, which nothing here needs.
# Installed beside the library's own package, which needs it as well.
include("${CMAKE_CURRENT_LIST_DIR}/KoruFindLibrary.cmake")
koru_find_library(Libzip zip.h zip)
