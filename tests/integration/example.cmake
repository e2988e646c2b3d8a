# The example, built with CMake, make or Meson, which BUILD names.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
find_program(meson meson)
if(BUILD STREQUAL "meson" AND NOT meson)
  message("Skipped: meson not found")
  return()
endif()
if(BUILD STREQUAL "make" AND SCRATCH MATCHES " ")
  message("Skipped: make does not support blanks in paths")
  return()
endif()
start("example_${BUILD}")
file(COPY ${IDLGEN_SOURCE_DIR}/examples/robot ${PREFIX}/bin ${PREFIX}/share DESTINATION ${scratch})
file(CREATE_LINK ${FRAMEWORK_DIR} ${scratch}/zentho SYMBOLIC)
set(robot ${scratch}/robot)
set(geometry_idl ${robot}/common/geometry.idl)
set(zentho ${scratch}/zentho)
set(ENV{PATH} "${scratch}/bin:$ENV{PATH}")

if(BUILD STREQUAL "make")
  set(build_all make -C ${robot} -j8 ZENTHO=${zentho} "CXXFLAGS=-Wall -Wextra -Werror")
elseif(BUILD STREQUAL "meson")
  run(SUCCEEDS COMMAND meson setup ${robot}/build ${robot} -Dzentho=${zentho} --werror)
  set(build_all ninja -C ${robot}/build -j8)
else()
  run(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G Ninja -S ${robot} -B ${robot}/build -D ZENTHO=${zentho}
                       -D CMAKE_PREFIX_PATH=${scratch} "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror")
  set(build_all ${CMAKE_COMMAND} --build ${robot}/build --parallel 8)
endif()

set(headers common/geometry. common/status. nav/navigation.)
run(SUCCEEDS COMMAND ${build_all} PRINTS ${headers} main.cpp report.cpp HIDES "warning")
run(SUCCEEDS COMMAND ${robot}/build/robot PRINTS "level 1: battery low")
run(SUCCEEDS COMMAND ${build_all} HIDES ${headers} main.cpp report.cpp)

# One header, and only the source files that use it.
file(APPEND ${geometry_idl} "message Area { corners: [Point] }\n")
run(SUCCEEDS COMMAND ${build_all} PRINTS common/geometry. main.cpp
             HIDES common/status. nav/navigation. report.cpp)

# An error, twice. Then its correction and a new program, at the same time.
file(READ ${geometry_idl} valid)
file(WRITE ${geometry_idl} "\nmessag Point {\n")
run(FAILS COMMAND ${build_all} PRINTS "common/geometry.idl:2:1: error: WRONG format in messag")
run(FAILS COMMAND ${build_all} PRINTS "common/geometry.idl:2:1: error: WRONG format in messag")
file(WRITE ${geometry_idl} "${valid}")
file(TOUCH ${scratch}/bin/idlgen-header)
run(SUCCEEDS COMMAND ${build_all} PRINTS ${headers} main.cpp)
run(SUCCEEDS COMMAND ${build_all} HIDES ${headers} main.cpp)

# The header of a renamed IDL file is deleted, so that nothing is compiled with it.
file(RENAME ${robot}/common/status.idl ${robot}/common/state.idl)
foreach(name CMakeLists.txt Makefile meson.build)
  file(READ ${robot}/${name} text)
  string(REPLACE "status.idl" "state.idl" text "${text}")
  file(WRITE ${robot}/${name} "${text}")
endforeach()
run(FAILS COMMAND ${build_all} PRINTS "common/status.h: No such file or directory")
