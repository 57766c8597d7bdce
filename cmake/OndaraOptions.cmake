# Language level, warnings and sanitizers: everything that holds for every target.

option(ONDARA_TESTS "Build the tests" ON)
option(ONDARA_BENCH "Build the benchmarks" ON)
option(ONDARA_FUZZ "Build the fuzz targets, with clang" OFF)
option(ONDARA_WERROR "Treat warnings as errors" OFF)
set(ONDARA_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor)

# The tables of two builds, and of the optimised loop and its plain twin, are compared bit for bit:
# a fused multiply-add rounds once where the algorithm rounds twice.
add_compile_options(-ffp-contract=off)

# A symbol that is unique in the process would keep the plug-in from being unloaded.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fno-gnu-unique)
endif()

# What TDynamicCollection's Get overrides depends on the interface, so it cannot say so.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  add_compile_options(-Wno-inconsistent-missing-override)
endif()

if(ONDARA_WERROR)
  add_compile_options(-Werror)
endif()

if(ONDARA_SANITIZE)
  add_compile_options(-fsanitize=${ONDARA_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ONDARA_SANITIZE})
  if(ONDARA_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()
