# The library for programs that embed the component: find_package(KoruCounting) gives one target for each part.
# docs/hosting.md describes them.

include(CMakePackageConfigHelpers)

# koru_part(<Name> <target>...): KoruCounting::<Name> links the targets.
function(koru_part name)
  add_library(koru_part_${name} INTERFACE)
  target_compile_features(koru_part_${name} INTERFACE cxx_std_20)
  target_include_directories(koru_part_${name} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/koru-counting>)
  target_link_libraries(koru_part_${name} INTERFACE ${ARGN})
  set_target_properties(koru_part_${name} PROPERTIES EXPORT_NAME ${name})
  add_library(KoruCounting::${name} ALIAS koru_part_${name})
  install(TARGETS koru_part_${name} EXPORT KoruCounting)
endfunction()

# koru_boxes_of(<variable> <target>...): the targets and all boxes that they link.
function(koru_boxes_of variable)
  set(boxes "")
  set(next ${ARGN})
  while(next)
    list(POP_FRONT next box)
    if(NOT box IN_LIST boxes)
      list(APPEND boxes ${box})
      get_target_property(links ${box} LINK_LIBRARIES)
      list(FILTER links INCLUDE REGEX "^koru_")
      list(APPEND next ${links})
    endif()
  endwhile()
  set(${variable} ${boxes} PARENT_SCOPE)
endfunction()

set(sqlite koru_adapters_sqlite koru_database)
set(odbc koru_adapters_odbc koru_database_sqlserver)
koru_part(Component koru_component koru_adapters_system)
koru_part(Sqlite koru_part_Component ${sqlite})
koru_part(Odbc koru_part_Component ${odbc})
koru_part(Desktop koru_part_Component koru_desktop_suite)

koru_boxes_of(boxes koru_component koru_adapters_system ${sqlite} ${odbc} koru_desktop_suite)
install(TARGETS ${boxes} EXPORT KoruCounting ARCHIVE COMPONENT development)
if(KORU_FLOOR)  # the toolkit makes the page's resources a library of objects
  install(TARGETS koru_desktop_floor_page_resources_1 EXPORT KoruCounting
          OBJECTS DESTINATION ${CMAKE_INSTALL_LIBDIR}/koru-counting COMPONENT development)
endif()
foreach(box IN LISTS boxes)
  get_target_property(folder ${box} KORU_FOLDER)
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h)
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/koru-counting/${folder} COMPONENT development)
endforeach()

set(modules FindXlsxwriter FindLibzip KoruFindLibrary)
if(KORU_FLOOR)
  list(APPEND modules FindMicrohttpd FindQrencode)
endif()
list(TRANSFORM modules PREPEND ${CMAKE_SOURCE_DIR}/cmake/)
list(TRANSFORM modules APPEND .cmake)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/KoruCounting)
configure_package_config_file(KoruCountingConfig.cmake.in KoruCountingConfig.cmake INSTALL_DESTINATION ${package}
                              PATH_VARS KORU_INSTALL_DATA)
write_basic_package_version_file(KoruCountingConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(EXPORT KoruCounting NAMESPACE KoruCounting:: FILE KoruCountingTargets.cmake DESTINATION ${package}
        COMPONENT development)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KoruCountingConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KoruCountingConfigVersion.cmake ${modules}
        DESTINATION ${package} COMPONENT development)
