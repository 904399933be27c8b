# pickerctl_find_qt_module(<Module>): makes Qt6::<Module> available for the tests and sets
# PICKERCTL_HAVE_<Module> in the caller. Qt's own package comes first. Some distributions ship a
# module's library and headers but not every dependency's CMake files (Debian's UiTools and Designer
# want Qt6OpenGL's, which only libqt6opengl6-dev brings); then an imported target over the library
# and its headers stands in, which is all a test needs.
function(pickerctl_find_qt_module module)
  find_package(Qt6 QUIET COMPONENTS ${module})
  if(TARGET Qt6::${module})
    set(PICKERCTL_HAVE_${module} TRUE PARENT_SCOPE)
    return()
  endif()
  get_target_property(_core_library Qt6::Core LOCATION)
  get_filename_component(_library_dir "${_core_library}" DIRECTORY)
  get_target_property(_core_includes Qt6::Core INTERFACE_INCLUDE_DIRECTORIES)
  find_library(PICKERCTL_QT6_${module}_LIBRARY NAMES Qt6${module} HINTS ${_library_dir} NO_DEFAULT_PATH)
  find_path(PICKERCTL_QT6_${module}_INCLUDE_DIR NAMES Qt${module}/Qt${module} HINTS ${_core_includes} NO_DEFAULT_PATH)
  if(NOT PICKERCTL_QT6_${module}_LIBRARY OR NOT PICKERCTL_QT6_${module}_INCLUDE_DIR)
    set(PICKERCTL_HAVE_${module} FALSE PARENT_SCOPE)
    return()
  endif()
  add_library(Qt6::${module} SHARED IMPORTED GLOBAL)
  set_target_properties(Qt6::${module} PROPERTIES
    IMPORTED_LOCATION ${PICKERCTL_QT6_${module}_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES "${PICKERCTL_QT6_${module}_INCLUDE_DIR};${PICKERCTL_QT6_${module}_INCLUDE_DIR}/Qt${module}"
    INTERFACE_LINK_LIBRARIES "Qt6::Widgets")
  set(PICKERCTL_HAVE_${module} TRUE PARENT_SCOPE)
endfunction()
