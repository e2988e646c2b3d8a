# Calls that idlgen_generate and find_package reject, and the messages.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start(errors)
file(WRITE ${place}/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(errors LANGUAGES NONE)
find_package(idlgen CONFIG REQUIRED)
cmake_language(EVAL CODE \"\${CALL}\")
")
foreach(name a.idl a.txt b.h none dots. .hidden sub/c.idl)
  file(WRITE ${place}/${name} "")
endforeach()
set(configure ${CMAKE_COMMAND} -G ${GENERATOR} -S ${place} -B ${place}/build
              -D CMAKE_PREFIX_PATH=${PREFIX})

function(rejected call message)
  step(FAILS COMMAND ${configure} -D "CALL=idlgen_generate(${call})"
             PRINTS "idlgen_generate: ${message}")
endfunction()

rejected("FILES a.idl" "missing TARGET")
rejected("TARGET t" "missing FILES for the target t")
rejected("TARGET t FILES" "no value after FILES")
rejected("TARGET t FILES a.idl SOURCES" "file not found: SOURCES")
rejected("t FILES a.idl" "unknown argument: t")
rejected("TARGET t FILES a.idl \"\"" "empty argument")
rejected("TARGET t FILES missing.idl" "file not found: missing.idl")
rejected("TARGET t FILES sub" "file not found: sub")
rejected("TARGET t FILES a.idl BASE_DIR sub" "a.idl is not below the base directory")
rejected("TARGET t FILES sub/../../x.idl" "file not found: sub/../../x.idl")
rejected("TARGET t FILES none" "none has no extension")
rejected("TARGET t FILES dots." "dots. has no extension")
rejected("TARGET t FILES .hidden" ".hidden has no extension")
rejected("TARGET t FILES b.h" "b.h already has the extension .h")
rejected("TARGET t FILES a.idl a.txt" "a.txt and another file would both generate a.h")
rejected("TARGET t FILES a.idl a.idl" "a.idl and another file would both generate a.h")
rejected("TARGET t::u FILES a.idl" "not a valid target name: t::u")
foreach(name [[a#.idl]] [[a<.idl]] [[a\b.idl]] [[a$(b.idl]])
  rejected("TARGET t FILES [[${name}]]" "${name} contains a character that CMake does not support")
endforeach()
rejected("TARGET t FILES $<1:a.idl>" "FILES does not support generator expressions: $<1:a.idl>")
rejected("TARGET t FILES a.idl)\nidlgen_generate(TARGET t FILES a.idl" "the target t already exists")
rejected("TARGET t FILES a.idl)\nidlgen_generate(TARGET t_generate FILES a.idl"
        "the target t_generate already exists")
step(FAILS COMMAND ${configure} -D "CALL=find_package(idlgen REQUIRED COMPONENTS extra)"
           PRINTS "idlgen_FOUND to FALSE")
step(SUCCEEDS COMMAND ${configure} -D "CALL=idlgen_generate(TARGET t BASE_DIR sub FILES sub/c.idl)")

# The Makefile generators do not support colons in file names.
string(REPLACE Ninja "Unix Makefiles" configure "${configure}")
file(REMOVE_RECURSE ${place}/build)
rejected("TARGET t FILES a:b.idl" "a:b.idl contains")
