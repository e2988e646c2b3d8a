# Calls that idlgen_generate and find_package reject, and the messages.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("errors with a blank")
create_small_project()
foreach(name a.txt none dots. .hidden a.h/b.idl sub/c.idl
             "a#.idl" "v[1].idl" "v?.idl" "a%b.idl" "a:b.idl")
  file(WRITE "${scratch}/${name}" "")
endforeach()

function(rejected call message)
  run(FAILS COMMAND ${configure} -D "CALL=idlgen_generate(${call})" PRINTS "${message}")
endfunction()

rejected("TARGET t" "idlgen_generate: TARGET and FILES are required")
rejected("TARGET t FILES" "idlgen_generate: no value after FILES")
rejected("t FILES a.idl" "idlgen_generate: unknown argument: t")
rejected("TARGET t FILE a.idl" "idlgen_generate: unknown argument: FILE ")
rejected("TARGET T FILES a.idl OUTPUT_DIR gen" "idlgen_generate: unknown argument: OUTPUT_DIR ")
rejected("TARGET t FILES a.idl TARGET u" "idlgen_generate: TARGET takes one name, not t;u")
rejected("TARGET ../t FILES a.idl" "idlgen_generate: TARGET takes one name, not ../t")
rejected("TARGET t FILES a.idl)\nidlgen_generate(TARGET t FILES a.idl"
         "idlgen_generate: there is a target t already")
rejected("TARGET t FILES missing.idl" "idlgen_generate: file not found: missing.idl")
rejected("TARGET t FILES a.idl BASE_DIR sub" "a.idl is in none of the base directories")
foreach(name none dots. .hidden)
  rejected("TARGET t FILES ${name}" "${name} has no extension")
endforeach()
rejected("TARGET t FILES a.idl a.txt" "a.idl and a.txt would both generate a.h")
rejected("TARGET t FILES a.h/b.idl a.idl" "a.h would be a header and a directory")

# Characters that CMake does not quote, wherever they are in the path.
rejected("TARGET t FILES v[1].idl" "in the path ${scratch}/v[1].idl")
rejected("TARGET t FILES [[a#.idl]]" "CMake does not support \"#\" in the path ${scratch}/a#.idl")
rejected("TARGET t FILES v?.idl" "CMake does not support \"?\" in the path ${scratch}/v?.idl")
file(COPY ${scratch}/CMakeLists.txt ${scratch}/a.idl DESTINATION ${scratch}/d:x)
run(FAILS COMMAND ${CMAKE_COMMAND} -E chdir ${scratch} ${CMAKE_COMMAND} -S d:x -B ${scratch}/drive
                  -D CMAKE_PREFIX_PATH=${PREFIX} -D "CALL=idlgen_generate(TARGET t FILES a.idl)"
          PRINTS "CMake does not support \"d:\" in the path d:x/a.idl")
foreach(pair "a%b.idl;%" "a:b.idl;:")
  list(GET pair 0 name)
  list(GET pair 1 character)
  run(FAILS COMMAND ${CMAKE_COMMAND} -G "Unix Makefiles" -S ${scratch} -B ${scratch}/make
                    -D CMAKE_PREFIX_PATH=${PREFIX} -D "CALL=idlgen_generate(TARGET t FILES ${name})"
            PRINTS "CMake does not support \"${character}\" in the path ${scratch}/${name}")
endforeach()

# A package that cannot be used is not found, which does not end the configuration.
file(WRITE ${scratch}/quiet/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(quiet LANGUAGES NONE)
if(OLD)
  set(CMAKE_VERSION 3.22.1)
endif()
find_package(idlgen QUIET)
message(STATUS \"found \${idlgen_FOUND}: \${idlgen_NOT_FOUND_MESSAGE}\")
")
function(not_found prefix build message)
  run(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G ${BUILD} -S ${scratch}/quiet -B ${build}
                       -D CMAKE_PREFIX_PATH=${prefix} ${ARGN}
               PRINTS "found 0: " "${message}")
endfunction()
set(prefix "${scratch}/a#b")
file(COPY ${PREFIX}/bin ${PREFIX}/share DESTINATION ${prefix})
not_found(${prefix} ${scratch}/quiet/build "CMake does not support \"#\" in the path ${prefix}/bin/idlgen-header")
not_found(${PREFIX} ${scratch}/build[1] "in the path ${scratch}/build[1]")
file(REMOVE ${prefix}/bin/idlgen-header)
not_found(${prefix} ${scratch}/quiet/build "The program of the package is missing or not executable")
not_found(${PREFIX} ${scratch}/quiet/build "The package needs CMake 3.23 or later" -D OLD=ON)

run(FAILS COMMAND ${configure} -D "CALL=find_package(idlgen REQUIRED COMPONENTS extra)"
          PRINTS "The package has no component extra")
run(SUCCEEDS COMMAND ${configure}
             -D "CALL=idlgen_generate(TARGET t BASE_DIR sub FILES sub/c.idl DEPENDS)")
