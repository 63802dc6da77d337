# The library that writes workbooks. Installed beside the library's own package, which needs it as well.
include("${CMAKE_CURRENT_LIST_DIR}/KoruFindLibrary.cmake")
koru_find_library(Xlsxwriter xlsxwriter.h xlsxwriter)
