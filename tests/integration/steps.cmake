# Commands for the integration tests. run() and check() end the test if a result is wrong.
cmake_minimum_required(VERSION 3.23)

# run(SUCCEEDS|FAILS COMMAND ... [PRINTS <text>...] [HIDES <text>...])
#
# Runs the command. It must succeed or fail, print all texts of PRINTS and none of HIDES.
function(run expected)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;PRINTS;HIDES")
  execute_process(COMMAND ${arg_COMMAND}
                  OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  set(outcome FAILS)
  if(status STREQUAL "0")
    set(outcome SUCCEEDS)
  endif()
  set(errors "")
  if(NOT outcome STREQUAL expected)
    string(APPEND errors "Its status is ${status}.\n")
  endif()
  # CMake wraps its messages.
  string(REGEX REPLACE "[ \n]+" " " flat "${output}")
  foreach(text IN LISTS arg_PRINTS)
    string(FIND "${flat}" "${text}" position)
    if(position EQUAL -1)
      string(APPEND errors "It does not print \"${text}\".\n")
    endif()
  endforeach()
  foreach(text IN LISTS arg_HIDES)
    string(FIND "${flat}" "${text}" position)
    if(position GREATER_EQUAL 0)
      string(APPEND errors "It prints \"${text}\".\n")
    endif()
  endforeach()
  if(errors)
    message(FATAL_ERROR "${arg_COMMAND}\n${errors}${output}")
  endif()
endfunction()

# check(<condition>): the condition, in the syntax of if(), is true.
macro(check condition)
  cmake_language(EVAL CODE "
    if(NOT (${condition}))
      message(FATAL_ERROR [[Check failed: ${condition}]])
    endif()")
endmacro()

# check_contains(<file> <text>)
function(check_contains file text)
  file(READ "${file}" content)
  string(FIND "${content}" "${text}" position)
  check("position GREATER_EQUAL 0")
endfunction()

# Creates an empty directory for the test, ${scratch}.
macro(start name)
  set(scratch "${SCRATCH}/${name}")
  file(REMOVE_RECURSE ${scratch})
  file(MAKE_DIRECTORY ${scratch})
endmacro()

# Copies the project in the directory to ${source}, and configures it with the additional arguments.
# ${configure} configures it again, ${build_all} builds it in ${build}.
macro(configure_project directory)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/${directory} DESTINATION ${scratch})
  set(source ${scratch}/${directory})
  set(build ${scratch}/build)
  set(configure ${CMAKE_COMMAND} -G ${BUILD} -S ${source} -B ${build}
                -D CMAKE_PREFIX_PATH=${PREFIX} -D FRAMEWORK_DIR=${FRAMEWORK_DIR} ${ARGN})
  set(build_all ${CMAKE_COMMAND} --build ${build} --parallel 2)
  run(SUCCEEDS COMMAND ${configure})
endmacro()

# Writes a project that generates a.h from a.idl and needs no compiler, and sets ${configure} and
# ${build_all}. CALL is executed after find_package.
macro(create_small_project)
  file(WRITE ${scratch}/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(small LANGUAGES NONE)
find_package(idlgen CONFIG REQUIRED)
cmake_language(EVAL CODE \"\${CALL}\")
")
  file(WRITE ${scratch}/a.idl "message A { }\n")
  set(build ${scratch}/build)
  set(configure ${CMAKE_COMMAND} -G ${BUILD} -S ${scratch} -B ${build}
                -D CMAKE_PREFIX_PATH=${PREFIX})
  set(build_all ${CMAKE_COMMAND} --build ${build})
endmacro()
