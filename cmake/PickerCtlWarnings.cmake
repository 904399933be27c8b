# Warnings for every target of the project; third-party headers (Qt) are system headers.
function(pickerctl_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
endfunction()

# Internal pieces of the library are static archives of position-independent code,
# linked whole into the shared PickerCtl library.
function(pickerctl_area target)
  add_library(${target} STATIC ${ARGN})
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<BUILD_INTERFACE:${PICKERCTL_GENERATED_INCLUDE_DIR}>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  # Compiled for the shared library: its exported symbols are exports, not imports.
  target_compile_definitions(${target} PRIVATE PickerCtl_EXPORTS)
  pickerctl_warnings(${target})
endfunction()
