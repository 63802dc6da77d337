# Common settings of all targets, and the declaration of boxes.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

find_program(KORU_CCACHE ccache)
if(KORU_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KORU_CCACHE})
endif()

add_library(koru_options INTERFACE)
target_compile_options(koru_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 has false positives: inlined copies of std::string as overlapping, and empty optional values as
  # uninitialised. Fixed in g++ 13.
  target_compile_options(koru_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
if(KORU_SANITIZE)
  target_compile_options(koru_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(koru_options INTERFACE -fsanitize=address,undefined)
endif()
if(KORU_CORE_ONLY)
  # Some machines have headers of the desktop and the databases in the default include path; here they are
  # errors.
  target_include_directories(koru_options BEFORE INTERFACE ${CMAKE_SOURCE_DIR}/cmake/poison)
endif()

# koru_box(<folder> SOURCES <file>... [LINKS <target>...] [LIBRARIES <target>...])
#
# Declares <folder> as the library koru_<folder> (slashes become underscores). Its headers are included as
# "<folder>/Header.h", and only by targets that link it: each box has an include directory of its own that
# contains only its folder. LINKS are the boxes that its headers use, LIBRARIES those that only its sources
# use.
function(koru_box folder)
  cmake_parse_arguments(box "" "" "SOURCES;LINKS;LIBRARIES" ${ARGN})
  string(REPLACE "/" "_" name ${folder})
  set(shown ${CMAKE_BINARY_DIR}/include/${name})
  get_filename_component(parent ${shown}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  if(NOT EXISTS ${shown}/${folder})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${shown}/${folder} SYMBOLIC)
  endif()
  add_library(koru_${name} STATIC ${box_SOURCES})
  target_include_directories(koru_${name} PUBLIC $<BUILD_INTERFACE:${shown}>)
  target_link_libraries(koru_${name} PUBLIC ${box_LINKS} PRIVATE $<BUILD_INTERFACE:koru_options> ${box_LIBRARIES})
  set_target_properties(koru_${name} PROPERTIES KORU_FOLDER ${folder} EXPORT_NAME ${name})
endfunction()

# The data folder of installed programs, relative to the prefix (adapters/system/DataFolder.h finds it).
include(GNUInstallDirs)
set(KORU_INSTALL_DATA ${CMAKE_INSTALL_DATADIR}/koru-counting)

# koru_data(<name> <folder>)
#
# Shows <folder> as <name> in the data folder of the build tree.
function(koru_data name folder)
  set(data ${CMAKE_BINARY_DIR}/share/koru-counting)
  file(MAKE_DIRECTORY ${data})
  file(CREATE_LINK ${folder} ${data}/${name} SYMBOLIC)
endfunction()

# koru_scenarios(<variable>): the scenarios that koru-scenario, as it is built, has the steps for.
function(koru_scenarios variable)
  file(GLOB scenarios CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/scenarios/*.scenario)
  set(runnable "")
  foreach(scenario IN LISTS scenarios)
    file(STRINGS ${scenario} floor_steps REGEX "^floor ")
    if(KORU_FLOOR OR NOT floor_steps)
      list(APPEND runnable ${scenario})
    endif()
  endforeach()
  set(${variable} ${runnable} PARENT_SCOPE)
endfunction()
