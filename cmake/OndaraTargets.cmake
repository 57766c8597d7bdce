# One library per folder of src/, one test program per folder of tests/, one benchmark per subsystem.

# ondara_library(NAME [SOURCES ...] [LINKS ...])
# LINKS names the folders below, in the order of the floors. A folder of headers alone has no SOURCES.
function(ondara_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    set(scope PUBLIC)
    if(ONDARA_FUZZ) # the fuzzer sees the branches that an input takes
      target_compile_options(${name} PRIVATE -fsanitize-coverage=inline-8bit-counters,pc-table)
    endif()
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} ${scope} ${ARG_LINKS})
endfunction()

# ondara_tests(NAME [LINKS ...])
# Every *Test.cpp of the calling folder belongs to the program: a test file cannot be left out.
function(ondara_tests name)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gtest_main)
  # Building the tests is what takes the time. So still more files are compiled as one than elsewhere,
  # and a test is not optimised; what it tests is built as it ships.
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 16)
  target_compile_options(${name} PRIVATE -O0)
  # What is local to one of the joined files seems to be a header's, or something that another shadows.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE -Wno-subobject-linkage -Wno-shadow)
  else()
    target_compile_options(${name} PRIVATE -Wno-shadow -Wno-string-concatenation)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
endfunction()

# ondara_bench(NAME [LINKS ...])
# The benchmark of one subsystem: bench/NAME.cpp becomes bin/NAME.
function(ondara_bench name)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  add_executable(${name} "${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp")
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} benchmark::benchmark)
endfunction()
