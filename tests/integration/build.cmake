# A project that uses idlgen_generate, with one of CMake's generators.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("${BUILD} with a blank")
# Cache entries of the project do not reach into idlgen_generate.
configure_project(consumer "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror"
                   -D names=stray -D options=stray)
set(geometry_idl ${source}/idl/common/geometry.idl)
set(geometry ${build}/idl/common_idl.idlgen/include/common/geometry.h)
set(made ${build}/idl/made_idl.idlgen/include/make/made.h)
file(GLOB_RECURSE sources ${source}/*)

# The first build generates all headers. The second one has nothing to do.
run(SUCCEEDS COMMAND ${build_all} HIDES "warning")
run(SUCCEEDS COMMAND ${build}/app/app)
run(SUCCEEDS COMMAND ${build_all} HIDES "Generating" "Building")

# A change of an IDL file, or of what generates one, regenerates its header but no other.
file(APPEND ${geometry_idl} "message Line { from: Point to: Point }\n")
file(APPEND ${source}/idl/make/made.in "enum More { MORE: 2 }\n")
run(SUCCEEDS COMMAND ${build_all} PRINTS "Generating common/geometry.h" "Generating make/made.h"
                                  HIDES "Generating robot.nav.h" "Generating spare.h")
check_contains(${geometry} "struct Line")
check_contains(${made} "MORE = 2")

# An error stops the build and names the line, until it is fixed.
file(READ ${geometry_idl} valid)
file(WRITE ${geometry_idl} "# comment\nmessage Fault (\n")
run(FAILS COMMAND ${build_all} PRINTS "${geometry_idl}:2:15: error: \"(\" is not \"{\""
                                HIDES "Generating" "Building")
file(WRITE ${geometry_idl} "${valid}")
run(SUCCEEDS COMMAND ${build_all})
run(SUCCEEDS COMMAND ${build_all} HIDES "Generating")

# The rest does not depend on the generator, or holds only for Ninja.
if(NOT BUILD STREQUAL "Ninja")
  return()
endif()

# A change that leaves the header the same compiles nothing.
file(APPEND ${geometry_idl} "# comment\n")
run(SUCCEEDS COMMAND ${build_all} PRINTS "Generating common/geometry.h" HIDES "Building")
run(SUCCEEDS COMMAND ${build_all} PRINTS "no work to do")

# A header is deleted when its IDL file is not listed any more, and nothing else is.
set(spare_headers ${build}/idl/spare_idl.idlgen/include)
file(WRITE ${source}/idl/other.idl "")
file(WRITE ${spare_headers}/notes.txt "")
file(READ ${source}/idl/CMakeLists.txt lists)
string(REPLACE "FILES extra/spare.idl" "FILES other.idl" changed "${lists}")
file(WRITE ${source}/idl/CMakeLists.txt "${changed}")
run(SUCCEEDS COMMAND ${build_all})
file(GLOB left RELATIVE ${spare_headers} ${spare_headers}/*)
check("left STREQUAL \"notes.txt;other.h\"")
file(WRITE ${source}/idl/CMakeLists.txt "${lists}")
file(REMOVE ${source}/idl/other.idl)
run(SUCCEEDS COMMAND ${build_all})

# A directory that is left empty is not in the place of another header.
file(WRITE ${source}/idl/extra/deep.h/spare.idl "")
file(WRITE ${source}/idl/extra/deep.idl "")
foreach(file extra/deep.h/spare.idl extra/deep.idl extra/spare.idl)
  string(REPLACE "FILES extra/spare.idl" "FILES ${file}" changed "${lists}")
  file(WRITE ${source}/idl/CMakeLists.txt "${changed}")
  run(SUCCEEDS COMMAND ${build_all} --target spare_idl_generate)
endforeach()
file(REMOVE_RECURSE ${source}/idl/extra/deep.h ${source}/idl/extra/deep.idl)

# Nothing is written to the source tree.
file(GLOB_RECURSE sources_now ${source}/*)
check("sources_now STREQUAL sources")

# The headers are installed or exported, and another project can use them.
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${scratch}/installed)
check("EXISTS \"${scratch}/installed/include/spare.h\"")
file(WRITE ${scratch}/other/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(other LANGUAGES CXX)
foreach(directory installed build)
  find_package(robot_\${directory} CONFIG REQUIRED
    PATHS \"${scratch}/\${directory}\" NO_DEFAULT_PATH)
  add_library(\${directory} OBJECT other.cpp)
  target_link_libraries(\${directory} PRIVATE \${directory}::common_idl)
  target_include_directories(\${directory} PRIVATE \"${FRAMEWORK_DIR}\")
  target_compile_features(\${directory} PRIVATE cxx_std_17)
endforeach()
")
file(WRITE ${scratch}/other/other.cpp "#include <common/geometry.h>\nrobot::Point point;\n")
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G ${BUILD} -S ${scratch}/other -B ${scratch}/other/build)
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} --build ${scratch}/other/build)

run(SUCCEEDS COMMAND ${build_all} --target clean)
check("NOT EXISTS \"${geometry}\"")
