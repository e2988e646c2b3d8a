# Programs are linked statically, unless a flag of one configuration does not allow that.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("static")

# links(<how> <source> <option>...): configures the source, and finds how its programs are linked.
function(links expected source)
  set(configure ${CMAKE_COMMAND} -G ${BUILD} -S ${source} -B ${scratch}/build ${ARGN}
                -D BUILD_TESTING=OFF "-DCMAKE_CONFIGURATION_TYPES=Release\\;Asan")
  run(SUCCEEDS COMMAND ${configure})
  file(STRINGS ${scratch}/build/CMakeFiles/impl-Release.ninja flags REGEX "LINK_FLAGS = .*-static")
  set(linked dynamically)
  if(flags)
    set(linked statically)
  endif()
  check("linked STREQUAL expected")
endfunction()

# In one build directory.
links(statically ${IDLGEN_SOURCE_DIR})
links(dynamically ${IDLGEN_SOURCE_DIR} -D CMAKE_CXX_FLAGS_ASAN=-fsanitize=address)
links(statically ${IDLGEN_SOURCE_DIR} -D CMAKE_CXX_FLAGS_ASAN=)

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
file(REMOVE_RECURSE ${scratch}/build)
links(dynamically ${scratch}/parent)
