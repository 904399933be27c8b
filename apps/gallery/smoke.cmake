# Runs pickerctl-gallery on one page with a screenshot, in a scratch home of its own, and checks that
# it saved a picture and kept its working copy of the sample catalogue in the user's data folder.
# cmake -DGALLERY=<exe> -DPAGE=<page> -DSCRATCH=<dir> -P smoke.cmake
set(_home ${SCRATCH}/${PAGE})
file(REMOVE_RECURSE ${_home})
file(MAKE_DIRECTORY ${_home})
set(ENV{HOME} ${_home})
set(ENV{XDG_DATA_HOME} ${_home}/data)
set(ENV{XDG_CONFIG_HOME} ${_home}/config)
set(ENV{QT_QPA_PLATFORM} offscreen)
execute_process(COMMAND ${GALLERY} --page ${PAGE} --screenshot ${_home}/shot.png --size 1200x800
  RESULT_VARIABLE _result OUTPUT_VARIABLE _out ERROR_VARIABLE _err)
if(NOT _result EQUAL 0)
  message(FATAL_ERROR "The gallery ended with ${_result}:\n${_out}${_err}")
endif()
file(SIZE ${_home}/shot.png _size)
if(_size LESS 10000)
  message(FATAL_ERROR "The screenshot of page ${PAGE} holds only ${_size} bytes.")
endif()
file(GLOB _copies ${_home}/data/PickerCtl/pickerctl-gallery/sample-catalog-*.sqlite)
list(LENGTH _copies _count)
if(NOT _count EQUAL 1)
  message(FATAL_ERROR "Expected one working copy of the sample catalogue, found: ${_copies}")
endif()
