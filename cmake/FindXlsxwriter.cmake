# The library that writes workbooks, as the target Xlsxwriter::Xlsxwriter. Installed beside the library's own
# package, which needs it as well.

find_path(XLSXWRITER_INCLUDE_DIR xlsxwriter.h)
find_library(XLSXWRITER_LIBRARY xlsxwriter)
mark_as_advanced(XLSXWRITER_INCLUDE_DIR XLSXWRITER_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Xlsxwriter REQUIRED_VARS XLSXWRITER_LIBRARY XLSXWRITER_INCLUDE_DIR)

if(Xlsxwriter_FOUND AND NOT TARGET Xlsxwriter::Xlsxwriter)
  add_library(Xlsxwriter::Xlsxwriter UNKNOWN IMPORTED)
  set_target_properties(Xlsxwriter::Xlsxwriter PROPERTIES
    IMPORTED_LOCATION ${XLSXWRITER_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${XLSXWRITER_INCLUDE_DIR})
endif()
