# Commands for the tests of the package. step() and check() end the test if a result is wrong.
cmake_minimum_required(VERSION 3.23)

# step(SUCCEEDS|FAILS COMMAND ... [PRINTS <text>...] [HIDES <text>...])
#
# Runs the command. It must succeed or fail, print all texts of PRINTS and none of HIDES.
function(step outcome)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;PRINTS;HIDES")
  execute_process(COMMAND ${arg_COMMAND}
                  OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  set(errors "")
  if(NOT outcome STREQUAL "SUCCEEDS" AND status STREQUAL "0")
    string(APPEND errors "It succeeded.\n")
  elseif(NOT outcome STREQUAL "FAILS" AND NOT status STREQUAL "0")
    string(APPEND errors "It failed: ${status}.\n")
  endif()
  # CMake wraps its messages.
  string(REGEX REPLACE "[ \n]+" " " flat "${output}")
  foreach(text IN LISTS arg_PRINTS)
    string(FIND "${flat}" "${text}" place)
    if(place EQUAL -1)
      string(APPEND errors "It does not print \"${text}\".\n")
    endif()
  endforeach()
  foreach(text IN LISTS arg_HIDES)
    string(FIND "${flat}" "${text}" place)
    if(NOT place EQUAL -1)
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

# Creates an empty directory for the test, ${place}, with a space in its path.
macro(start name)
  set(place "${SCRATCH}/${name} with a blank")
  file(REMOVE_RECURSE ${place})
  file(MAKE_DIRECTORY ${place})
endmacro()

# Copies the consumer to ${place} and configures it. ${make} builds it.
macro(configure_consumer)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/consumer DESTINATION ${place})
  set(source ${place}/consumer)
  set(build "${place}/build[1]")
  set(headers ${build}/idl)
  set(configure ${CMAKE_COMMAND} -G ${GENERATOR} -S ${source} -B ${build}
                -D CMAKE_PREFIX_PATH=${PREFIX} -D FRAMEWORK_DIR=${FRAMEWORK_DIR})
  set(make ${CMAKE_COMMAND} --build ${build} --parallel 2)
  step(SUCCEEDS COMMAND ${configure} ${ARGV})
endmacro()

# Deletes the configuration of the consumer.
macro(forget_configuration)
  file(REMOVE_RECURSE ${build}/CMakeCache.txt ${build}/CMakeFiles)
endmacro()
