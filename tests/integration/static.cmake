# Programs are linked statically in the configurations in which that works.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("static")
set(build ${scratch}/build)
set(configure ${CMAKE_COMMAND} -G ${BUILD} -S ${IDLGEN_SOURCE_DIR} -B ${build} -D BUILD_TESTING=OFF
              "-DCMAKE_CONFIGURATION_TYPES=Release\\;Asan")

# links(<configuration> <variable>): how its programs are linked.
function(links configuration variable)
  file(STRINGS ${build}/CMakeFiles/impl-${configuration}.ninja flags REGEX "LINK_FLAGS = .*-static")
  set(${variable} dynamically PARENT_SCOPE)
  if(flags)
    set(${variable} statically PARENT_SCOPE)
  endif()
endfunction()

run(SUCCEEDS COMMAND ${configure} -D CMAKE_CXX_FLAGS_ASAN=-fsanitize=address)
links(Release release)
links(Asan asan)
check("release STREQUAL statically AND asan STREQUAL dynamically")

# Other flags in an old build directory.
run(SUCCEEDS COMMAND ${configure} -D CMAKE_CXX_FLAGS_ASAN= -D CMAKE_CXX_FLAGS_RELEASE=-fsanitize=address)
links(Release release)
links(Asan asan)
check("release STREQUAL dynamically AND asan STREQUAL statically")

# A project that includes this one may link a library into all programs.
file(WRITE ${scratch}/parent/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(parent LANGUAGES CXX)
add_library(sanitizer INTERFACE)
target_compile_options(sanitizer INTERFACE -fsanitize=address)
target_link_options(sanitizer INTERFACE -fsanitize=address)
link_libraries(sanitizer)
add_subdirectory(\"${IDLGEN_SOURCE_DIR}\" idlgen)
")
set(build ${scratch}/parent/build)
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G ${BUILD} -S ${scratch}/parent -B ${build})
links(Debug debug)
check("debug STREQUAL dynamically")
