# pickerctl_area_from_folder(<area> PUBLIC_HEADERS names... LIBS targets...)
# Builds pickerctl_<area> from every .cpp/.h of the calling folder (and its sub-folders), plus the
# named public headers of include/PickerCtl that exist (AUTOMOC needs to see those with Q_OBJECT).
function(pickerctl_area_from_folder area)
  cmake_parse_arguments(A "" "" "PUBLIC_HEADERS;LIBS" ${ARGN})
  file(GLOB_RECURSE _sources CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  foreach(h IN LISTS A_PUBLIC_HEADERS)
    if(EXISTS ${PROJECT_SOURCE_DIR}/include/PickerCtl/${h})
      list(APPEND _sources ${PROJECT_SOURCE_DIR}/include/PickerCtl/${h})
    endif()
  endforeach()
  set(_units ${_sources})
  list(FILTER _units INCLUDE REGEX "\\.cpp$")
  if(NOT _units)
    return()  # an area whose code has not been written yet
  endif()
  pickerctl_area(pickerctl_${area} ${_sources})
  target_link_libraries(pickerctl_${area} PUBLIC ${A_LIBS})
endfunction()

# pickerctl_tests_from_folder(LIBS targets...): one CTest test per tst_*.cpp of the calling folder.
function(pickerctl_tests_from_folder)
  cmake_parse_arguments(T "" "" "LIBS" ${ARGN})
  file(GLOB _tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tst_*.cpp)
  file(GLOB _helpers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_helpers.cpp)
  foreach(t IN LISTS _tests)
    get_filename_component(_name ${t} NAME_WE)
    string(REGEX REPLACE "^tst_" "" _name ${_name})
    add_pickerctl_test(${_name} SOURCES ${t} ${_helpers} LIBS ${T_LIBS})
  endforeach()
endfunction()

# pickerctl_benches_from_folder(LIBS targets...): one benchmark executable per bench_*.cpp.
function(pickerctl_benches_from_folder)
  cmake_parse_arguments(B "" "" "LIBS" ${ARGN})
  file(GLOB _benches CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/bench_*.cpp)
  foreach(b IN LISTS _benches)
    get_filename_component(_name ${b} NAME_WE)
    string(REGEX REPLACE "^bench_" "" _name ${_name})
    add_pickerctl_bench(${_name} SOURCES ${b} LIBS ${B_LIBS})
  endforeach()
endfunction()
