# Targets that link others, in an empty build directory, with one of CMake's generators: the check of
# a target finds the files that its own include, and a header of which there is no IDL file.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("linked ${BUILD}")
configure_project(linked -D CMAKE_BUILD_TYPE=Debug)
set(point_idl ${source}/base/geo/point.idl)
set(route_idl ${source}/idl/robot/route.idl)

# Multi-Config: what a target links, and so the arguments of its check, may depend on the
# configuration. A build checks with those of its own.
set(check ${build}/robot_idl.idlgen/check)
if(BUILD MATCHES "Multi-Config")
  file(STRINGS ${check}/Release/arguments arguments)
  check("NOT \"-I${source}/only_debug\" IN_LIST arguments")
  run(SUCCEEDS COMMAND ${build_all} --config Release --target robot_idl_check --verbose
      PRINTS "Release/arguments" HIDES "Debug/arguments")
  string(APPEND check /Debug)
endif()
file(STRINGS ${check}/arguments arguments)
check("arguments STREQUAL \"-I${source}/idl;-I${source}/none;-I${source}/extra;-I${build}/none;\
-I${source}/base;-I${source}/only_debug;-I${build}/late/gen;-I${build}/late;\
-I${source}/installed;${route_idl}\"")

# Two targets depend on a file that is generated, once.
run(SUCCEEDS COMMAND ${build_all} PRINTS "Checking the IDL files of robot_idl")
run(SUCCEEDS COMMAND ${build_all} HIDES "Checking" "Generating" "Building")
file(STRINGS ${build}/late/log made)
check("made STREQUAL made")

# A changed file is checked in its target and in those that link it, and only its header is
# generated.
file(APPEND ${point_idl} "message Line { from: Point to: Point }\n")
run(SUCCEEDS COMMAND ${build_all}
    PRINTS "Checking the IDL files of base_idl" "Checking the IDL files of robot_idl"
           "Generating geo/point.h"
    HIDES "Checking the IDL files of made_idl" "Generating robot/route.h")
run(SUCCEEDS COMMAND ${build_all} HIDES "Checking" "Generating" "Building")

# Without a link, an include is not found, although the header has been generated. Of the directories
# that do not exist, none has been created, and they are named.
file(READ ${point_idl} text)
file(WRITE ${point_idl} "include \"build.idl\"\n${text}")
run(SUCCEEDS COMMAND ${build_all} --target base_idl_check
    PRINTS "${point_idl}:1:9: warning: \"build.idl\" is not found")
file(WRITE ${point_idl} "${text}")
file(READ ${route_idl} text)
file(WRITE ${route_idl} "include \"missing.idl\"\n${text}")
run(FAILS COMMAND ${build_all} --target robot_idl_check
    PRINTS "${source}/none: No such file" "${build}/none: No such file"
           "${route_idl}:1:9: warning: \"missing.idl\" is not found")

# A file of INCLUDE_DIRS, which no target generates a header of. Once it is gone and not included any
# more, nothing is left to do.
file(WRITE ${route_idl} "include \"more.idl\"\n${text}")
run(SUCCEEDS COMMAND ${build_all} --target robot_idl_check)
file(APPEND ${source}/extra/more.idl "message Most { }\n")
run(SUCCEEDS COMMAND ${build_all} --target robot_idl_check PRINTS "Checking")
file(WRITE ${route_idl} "${text}")
file(REMOVE ${source}/extra/more.idl)
run(SUCCEEDS COMMAND ${build_all} --target robot_idl_check PRINTS "Checking")
run(SUCCEEDS COMMAND ${build_all} --target robot_idl_check HIDES "Checking")

# A copy of the build directory, whose files name the original, builds and rests.
file(COPY ${build} DESTINATION ${scratch}/copy)
file(REMOVE ${scratch}/copy/build/CMakeCache.txt)
string(REPLACE ${build} ${scratch}/copy/build configure_copy "${configure}")
string(REPLACE ${build} ${scratch}/copy/build build_copy "${build_all}")
run(SUCCEEDS COMMAND ${configure_copy})
run(SUCCEEDS COMMAND ${build_copy} PRINTS "Checking the IDL files of robot_idl")
run(SUCCEEDS COMMAND ${build_copy} HIDES "Checking" "Generating" "Building")

# The rest does not depend on the generator.
if(NOT BUILD STREQUAL "Ninja")
  return()
endif()

# WERROR: a warning stops the build, with all that is said about the file.
file(APPEND ${route_idl} "enum Big { HUGE: 0xffffffffffffffff1 }\n")
run(FAILS COMMAND ${build_all} PRINTS "${route_idl}:6:18: warning: " HIDES "Generating" "Building")
run(FAILS COMMAND ${build_all} PRINTS "${route_idl}:6:18: warning: ")
file(WRITE ${route_idl} "${text}")
run(SUCCEEDS COMMAND ${build_all})

# No directory of the build is in what install(EXPORT) writes.
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${scratch}/installed
                     --config Debug)
file(READ ${scratch}/installed/lib/cmake/linked/linked-config.cmake exported)
foreach(path "${source}" "${build}")
  string(FIND "${exported}" "${path}" position)
  check("position EQUAL -1")
endforeach()
