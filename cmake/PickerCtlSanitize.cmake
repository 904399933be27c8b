# PICKERCTL_SANITIZE=ON builds every target of the tree with AddressSanitizer (leak detection
# included) and UndefinedBehaviorSanitizer. Undefined behaviour stops the program at the first
# report, so a test that triggers it fails instead of printing a line nobody reads.
# -O1 keeps the build quick while leaving stack traces readable; -g1 gives them file and line.
#
# PICKERCTL_BUILD_FUZZERS=ON (clang only) implies the sanitizers and adds libFuzzer's coverage
# instrumentation to every target, so that the fuzz_<name> programs of fuzz/ see into the library.
set(PICKERCTL_FUZZERS_SUPPORTED OFF)
if(PICKERCTL_BUILD_FUZZERS)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    set(PICKERCTL_FUZZERS_SUPPORTED ON)
    set(PICKERCTL_SANITIZE ON)
  else()
    message(WARNING "PICKERCTL_BUILD_FUZZERS needs clang (configure with -DCMAKE_CXX_COMPILER=clang++); "
      "only the corpus replays of fuzz/ are built")
  endif()
endif()

if(PICKERCTL_SANITIZE)
  # GCC leaves float-to-integer overflow out of "undefined"; it is undefined behaviour all the same.
  set(_pickerctl_sanitize_flags -fsanitize=address,undefined,float-cast-overflow
    -fno-sanitize-recover=undefined,float-cast-overflow -fno-omit-frame-pointer)
  add_compile_options(${_pickerctl_sanitize_flags} -O1 -g1)
  add_link_options(${_pickerctl_sanitize_flags})
endif()
if(PICKERCTL_FUZZERS_SUPPORTED)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
