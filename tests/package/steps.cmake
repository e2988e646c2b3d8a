# Steps that the tests of the package are written in. Each wants an outcome and ends the test, with
# what was printed, if it is another one.
cmake_minimum_required(VERSION 3.23)

# step(SUCCEEDS|FAILS COMMAND ... [PRINTS text...] [HIDES text...])
function(step outcome)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;PRINTS;HIDES")
  execute_process(COMMAND ${arg_COMMAND}
                  OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  set(faults "")
  if(NOT outcome STREQUAL "SUCCEEDS" AND status STREQUAL "0")
    string(APPEND faults "It should have failed.\n")
  elseif(NOT outcome STREQUAL "FAILS" AND NOT status STREQUAL "0")
    string(APPEND faults "It failed: ${status}.\n")
  endif()
  # CMake breaks its messages into lines.
  string(REGEX REPLACE "[ \n]+" " " flat "${output}")
  foreach(text IN LISTS arg_PRINTS)
    string(FIND "${flat}" "${text}" place)
    if(place EQUAL -1)
      string(APPEND faults "It does not print \"${text}\".\n")
    endif()
  endforeach()
  foreach(text IN LISTS arg_HIDES)
    string(FIND "${flat}" "${text}" place)
    if(NOT place EQUAL -1)
      string(APPEND faults "It prints \"${text}\".\n")
    endif()
  endforeach()
  if(faults)
    message(FATAL_ERROR "${arg_COMMAND}\n${faults}${output}")
  endif()
endfunction()

# want(condition): the condition, in the words of if(), holds.
macro(want condition)
  cmake_language(EVAL CODE "
    if(NOT (${condition}))
      message(FATAL_ERROR [[Not so: ${condition}]])
    endif()")
endmacro()

# A place of the test's own with a blank in its path, empty to begin with.
macro(start name)
  set(place "${SCRATCH}/${name} with a blank")
  file(REMOVE_RECURSE ${place})
  file(MAKE_DIRECTORY ${place})
endmacro()

# Copies the consumer into the place and configures it.
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

# The next configuration of the consumer starts anew.
macro(forget_configuration)
  file(REMOVE_RECURSE ${build}/CMakeCache.txt ${build}/CMakeFiles)
endmacro()
