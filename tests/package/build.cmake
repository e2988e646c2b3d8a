# A project that uses idlgen_generate, with one of CMake's generators.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("${GENERATOR}")
configure_consumer(-D CMAKE_VERIFY_INTERFACE_HEADER_SETS=ON)
set(geometry_idl ${source}/idl/common/geometry.idl)
set(geometry ${headers}/common_idl.idlgen/include/common/geometry.h)
set(robot ${headers}/robot_idl.idlgen/include/robot.nav.h)
file(GLOB_RECURSE sources ${source}/*)

# The first build generates all headers and does not print idlgen's messages. The second one has
# nothing to do.
step(SUCCEEDS COMMAND ${make} HIDES "idl path:" "done.")
step(SUCCEEDS COMMAND ${build}/app/app)
if(CMAKE_VERSION VERSION_GREATER_EQUAL 3.24)
  step(SUCCEEDS COMMAND ${make} --target all_verify_interface_header_sets)
endif()
step(SUCCEEDS COMMAND ${make} HIDES "Generating" "Building")
foreach(target common_idl made_idl robot_idl)
  file(GLOB_RECURSE others LIST_DIRECTORIES false ${headers}/${target}.idlgen/include/*)
  list(FILTER others EXCLUDE REGEX "\\.h$")
  check("others STREQUAL \"\"")
endforeach()

# A change of an IDL file, or of what generates one, regenerates its header but no other.
file(APPEND ${geometry_idl} "message Line { from: Point to: Point }\n")
step(SUCCEEDS COMMAND ${make} PRINTS "Generating common/geometry.h" HIDES "Generating robot.nav.h")
file(READ ${geometry} text)
check("text MATCHES \"struct Line\"")
file(APPEND ${source}/idl/make/made.in "enum More { MORE: 2 }\n")
step(SUCCEEDS COMMAND ${make} PRINTS "Generating make/made.h")
file(READ ${headers}/made_idl.idlgen/include/make/made.h text)
check("text MATCHES \"MORE = 2\"")

# An error stops the build and shows the user's path and all output of idlgen, until it is fixed.
file(READ ${geometry_idl} valid)
file(APPEND ${geometry_idl} "message Fault (\n")
foreach(try first second)
  step(FAILS COMMAND ${make} PRINTS "${geometry_idl}:" "WRONG format in (" "lines:" "message Fault (")
  check("NOT EXISTS \"${geometry}\"")
endforeach()
file(WRITE ${geometry_idl} "${valid}")
step(SUCCEEDS COMMAND ${make})
step(SUCCEEDS COMMAND ${make} HIDES "Generating")

# A header is deleted when its IDL file is not listed any more or its target no longer exists. Nothing
# else is deleted.
# build[1], as a glob, matches build1.
set(neighbor ${place}/build1/idl/spare_idl.idlgen/include/spare.h)
file(WRITE ${neighbor} "")
file(READ ${source}/idl/CMakeLists.txt text)
file(WRITE ${source}/idl/other.idl "")
string(REPLACE "FILES spare.idl" "FILES other.idl" changed "${text}")
file(WRITE ${source}/idl/CMakeLists.txt "${changed}\nidlgen_generate(TARGET old FILES spare.idl)")
step(SUCCEEDS COMMAND ${make})
check("EXISTS \"${headers}/spare_idl.idlgen/include/other.h\"")
check("NOT EXISTS \"${headers}/spare_idl.idlgen/include/spare.h\"")
check("EXISTS \"${headers}/old.idlgen/include/spare.h\"")
file(WRITE ${source}/idl/CMakeLists.txt "${text}")
file(REMOVE ${source}/idl/other.idl)
step(SUCCEEDS COMMAND ${make})
check("NOT EXISTS \"${headers}/old.idlgen\"")
check("EXISTS \"${neighbor}\"")

# Nothing is written to the source tree.
file(GLOB_RECURSE sources_now ${source}/*)
check("sources_now STREQUAL sources")

# The headers are installed, and another project can use them.
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${place}/installed)
check("EXISTS \"${place}/installed/include/common/geometry.h\"")
check("EXISTS \"${place}/installed/include/spare.h\"")
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
check("NOT EXISTS \"${headers}/robot_idl.idlgen\"")
