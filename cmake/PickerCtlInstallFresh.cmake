# cmake -DBUILD_DIR=<build> -DPREFIX=<prefix> -DCOMPONENT=<name> [-DSCRATCH=<dir>] -P PickerCtlInstallFresh.cmake
# Installs one component of a built tree into an emptied prefix (and empties SCRATCH, a consumer's
# build folder), so that nothing from an earlier install can stand in for a missing file.
file(REMOVE_RECURSE "${PREFIX}")
if(SCRATCH)
  file(REMOVE_RECURSE "${SCRATCH}")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}" --component "${COMPONENT}"
  RESULT_VARIABLE _result)
if(NOT _result EQUAL 0)
  message(FATAL_ERROR "cmake --install failed (${_result})")
endif()
