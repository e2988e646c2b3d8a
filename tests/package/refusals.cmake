# What idlgen_generate and find_package refuse, and in which words.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start(refusals)
file(WRITE ${place}/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(refusals LANGUAGES NONE)
find_package(idlgen CONFIG REQUIRED)
cmake_language(EVAL CODE \"\${CALL}\")
")
foreach(name a.idl a.txt b.h none dots. .hidden sub/c.idl)
  file(WRITE ${place}/${name} "")
endforeach()
set(configure ${CMAKE_COMMAND} -G ${GENERATOR} -S ${place} -B ${place}/build
              -D CMAKE_PREFIX_PATH=${PREFIX})

function(refused call message)
  step(FAILS COMMAND ${configure} -D "CALL=idlgen_generate(${call})"
             PRINTS "idlgen_generate: ${message}")
endfunction()

refused("FILES a.idl" "TARGET is missing")
refused("TARGET t" "FILES is missing for the target t")
refused("TARGET t FILES" "nothing follows FILES")
refused("TARGET t FILES a.idl SOURCES" "there is no file SOURCES")
refused("t FILES a.idl" "unknown argument: t")
refused("TARGET t FILES a.idl \"\"" "an argument is empty")
refused("TARGET t FILES missing.idl" "there is no file missing.idl")
refused("TARGET t FILES sub" "there is no file sub")
refused("TARGET t FILES a.idl BASE_DIR sub" "a.idl is not below the base directory")
refused("TARGET t FILES sub/../../x.idl" "there is no file sub/../../x.idl")
refused("TARGET t FILES none" "none has no extension")
refused("TARGET t FILES dots." "dots. has no extension")
refused("TARGET t FILES .hidden" ".hidden has no extension")
refused("TARGET t FILES b.h" "b.h has the name of its own header")
refused("TARGET t FILES a.idl a.txt" "a.txt and another file would both generate a.h")
refused("TARGET t FILES a.idl a.idl" "a.idl and another file would both generate a.h")
refused("TARGET t::u FILES a.idl" "no target can have the name t::u")
foreach(name [[a#.idl]] [[a<.idl]] [[a\b.idl]] [[a$(b.idl]])
  refused("TARGET t FILES [[${name}]]" "${name} contains #, <, >")
endforeach()
refused("TARGET t FILES $<1:a.idl>" "FILES does not support generator expressions: $<1:a.idl>")
refused("TARGET t FILES a.idl)\nidlgen_generate(TARGET t FILES a.idl" "there is a target t already")
refused("TARGET t FILES a.idl)\nidlgen_generate(TARGET t_generate FILES a.idl"
        "there is a target t_generate already")
step(FAILS COMMAND ${configure} -D "CALL=find_package(idlgen REQUIRED COMPONENTS extra)"
           PRINTS "idlgen_FOUND to FALSE")
step(SUCCEEDS COMMAND ${configure} -D "CALL=idlgen_generate(TARGET t BASE_DIR sub FILES sub/c.idl)")

# Where a colon separates a file from what it depends on.
string(REPLACE Ninja "Unix Makefiles" configure "${configure}")
file(REMOVE_RECURSE ${place}/build)
refused("TARGET t FILES a:b.idl" "a:b.idl contains")
