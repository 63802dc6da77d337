# The library that unpacks workbooks, as the target Libzip::Libzip. The library's own package for CMake demands its
# programs as well, which nothing here needs. Installed beside the library's own package, which needs it as well.

find_path(LIBZIP_INCLUDE_DIR zip.h)
find_library(LIBZIP_LIBRARY zip)
mark_as_advanced(LIBZIP_INCLUDE_DIR LIBZIP_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libzip REQUIRED_VARS LIBZIP_LIBRARY LIBZIP_INCLUDE_DIR)

if(Libzip_FOUND AND NOT TARGET Libzip::Libzip)
  add_library(Libzip::Libzip UNKNOWN IMPORTED)
  set_target_properties(Libzip::Libzip PROPERTIES
    IMPORTED_LOCATION ${LIBZIP_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${LIBZIP_INCLUDE_DIR})
endif()
