# Projects that run idlgen-header with make and Meson.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("other builds")
set(ENV{PATH} "${PREFIX}/bin:$ENV{PATH}")
file(WRITE ${place}/Makefile [[
all: build/include/pose.h app
build/include/%.h: idl/%.idl
	idlgen-header $< $@
app: app.cpp build/include/pose.h
	$(CXX) -std=c++17 -Ibuild/include -I$(FRAMEWORK_DIR) -o $@ app.cpp
]])
file(WRITE ${place}/meson.build [[
project('robot', 'cpp', default_options: ['cpp_std=c++17'])
pose_h = custom_target('pose.h', input: 'idl/pose.idl', output: 'pose.h',
                       command: [find_program('idlgen-header'), '@INPUT@', '@OUTPUT@'])
executable('app', 'app.cpp', pose_h, include_directories: include_directories('platform'))
]])
file(WRITE ${place}/app.cpp "#include \"pose.h\"\nint main() { return Pose{0}.x == 0 ? 0 : 1; }\n")
file(CREATE_LINK ${FRAMEWORK_DIR} ${place}/platform SYMBOLIC)

function(build_robot header app nothing)
  file(WRITE ${place}/idl/pose.idl "message Pose { x: float64 }\n")
  step(SUCCEEDS COMMAND ${ARGN} HIDES "idl path:")
  step(SUCCEEDS COMMAND ${app})
  step(SUCCEEDS COMMAND ${ARGN} PRINTS "${nothing}" HIDES "idlgen-header")
  file(WRITE ${place}/idl/pose.idl "message Pose (\n")
  step(FAILS COMMAND ${ARGN} PRINTS "idl/pose.idl:" "WRONG format in (")
  check("NOT EXISTS \"${header}\"")
  file(WRITE ${place}/idl/pose.idl "message Pose { x: float64 y: float64 }\n")
  step(SUCCEEDS COMMAND ${ARGN})
  file(READ ${header} text)
  check("text MATCHES \"double y;\"")
  file(GLOB left ${place}/idl/*)
  check("left STREQUAL \"${place}/idl/pose.idl\"")
endfunction()

build_robot(${place}/build/include/pose.h ${place}/app "Nothing to be done"
            make -C ${place} FRAMEWORK_DIR=${FRAMEWORK_DIR})
step(SUCCEEDS COMMAND meson setup ${place}/meson ${place})
build_robot(${place}/meson/pose.h ${place}/meson/app "no work to do" ninja -C ${place}/meson)
