# The life of a project that uses idlgen_generate, with one of CMake's generators.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("${GENERATOR}")
configure_consumer(-D CMAKE_VERIFY_INTERFACE_HEADER_SETS=ON)
set(geometry_idl ${source}/idl/common/geometry.idl)
set(geometry ${headers}/common_idl.idlgen/include/common/geometry.h)
set(robot ${headers}/robot_idl.idlgen/include/robot.nav.h)
file(GLOB_RECURSE sources ${source}/*)

# The first build makes all headers, in silence, and the second one has nothing to do.
step(SUCCEEDS COMMAND ${make} HIDES "idl path:" "done.")
step(SUCCEEDS COMMAND ${build}/app/app)
if(CMAKE_VERSION VERSION_GREATER_EQUAL 3.24)
  step(SUCCEEDS COMMAND ${make} --target all_verify_interface_header_sets)
endif()
step(SUCCEEDS COMMAND ${make} HIDES "Generating" "Building")
foreach(target common_idl made_idl robot_idl)
  file(GLOB_RECURSE others LIST_DIRECTORIES false ${headers}/${target}.idlgen/include/*)
  list(FILTER others EXCLUDE REGEX "\\.h$")
  want("others STREQUAL \"\"")
endforeach()

# A changed file, and what makes one, are seen; other headers stay.
file(APPEND ${geometry_idl} "message Line { from: Point to: Point }\n")
step(SUCCEEDS COMMAND ${make} PRINTS "Generating common/geometry.h" HIDES "Generating robot.nav.h")
file(READ ${geometry} text)
want("text MATCHES \"struct Line\"")
file(APPEND ${source}/idl/make/made.in "enum More { MORE: 2 }\n")
step(SUCCEEDS COMMAND ${make} PRINTS "Generating make/made.h")
file(READ ${headers}/made_idl.idlgen/include/make/made.h text)
want("text MATCHES \"MORE = 2\"")

# A fault stops the build, with the user's path and all that the program says, until it is mended.
file(READ ${geometry_idl} sound)
file(APPEND ${geometry_idl} "message Fault (\n")
foreach(try first second)
  step(FAILS COMMAND ${make} PRINTS "${geometry_idl}:" "WRONG format in (" "lines:" "message Fault (")
  want("NOT EXISTS \"${geometry}\"")
endforeach()
file(WRITE ${geometry_idl} "${sound}")
step(SUCCEEDS COMMAND ${make})
step(SUCCEEDS COMMAND ${make} HIDES "Generating")

# A header is deleted when its file or its target no longer exists, and nothing else is.
set(neighbor ${place}/build1/idl/spare_idl.idlgen/include/spare.h)
file(WRITE ${neighbor} "")
file(READ ${source}/idl/CMakeLists.txt text)
file(WRITE ${source}/idl/other.idl "")
string(REPLACE "FILES spare.idl" "FILES other.idl" changed "${text}")
file(WRITE ${source}/idl/CMakeLists.txt "${changed}\nidlgen_generate(TARGET old FILES spare.idl)")
step(SUCCEEDS COMMAND ${make})
want("EXISTS \"${headers}/spare_idl.idlgen/include/other.h\"")
want("NOT EXISTS \"${headers}/spare_idl.idlgen/include/spare.h\"")
want("EXISTS \"${headers}/old.idlgen/include/spare.h\"")
file(WRITE ${source}/idl/CMakeLists.txt "${text}")
file(REMOVE ${source}/idl/other.idl)
step(SUCCEEDS COMMAND ${make})
want("NOT EXISTS \"${headers}/old.idlgen\"")
want("EXISTS \"${neighbor}\"")

# Nothing has been written into the source tree.
file(GLOB_RECURSE sources_now ${source}/*)
want("sources_now STREQUAL sources")

# The headers are installed, and another project compiles against them.
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${place}/installed)
want("EXISTS \"${place}/installed/include/common/geometry.h\"")
want("EXISTS \"${place}/installed/include/spare.h\"")
file(WRITE ${place}/other/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(other LANGUAGES CXX)
find_package(robot CONFIG REQUIRED)
add_executable(other other.cpp)
target_link_libraries(other PRIVATE robot::common_idl)
target_include_directories(other PRIVATE \"${FRAMEWORK_DIR}\")
target_compile_features(other PRIVATE cxx_std_17)
")
file(WRITE ${place}/other/other.cpp "#include <common/geometry.h>
int main() { return robot::Point{0, 0}.x == 0 ? 0 : 1; }
")
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${place}/other -B ${place}/other/build
                      -D CMAKE_PREFIX_PATH=${place}/installed)
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --build ${place}/other/build)

step(SUCCEEDS COMMAND ${make} --target clean)
want("NOT EXISTS \"${headers}/robot_idl.idlgen\"")
