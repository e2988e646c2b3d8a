# The build step of idlgen_generate: makes HEADER of IDL with PROGRAM, by way of the file COPY, next
# to which the program writes the header MADE.
#
# Status 0 alone proves nothing, since the program passes over a file that it cannot read or write.
# The step wants the last lines of a header that was not there before.
cmake_minimum_required(VERSION 3.23)

file(REMOVE ${HEADER} ${MADE} ${COPY})
foreach(file ${HEADER} ${COPY})
  cmake_path(GET file PARENT_PATH directory)
  file(MAKE_DIRECTORY ${directory})
endforeach()
file(COPY_FILE ${IDL} ${COPY})
execute_process(COMMAND ${PROGRAM} -f ${COPY}
                OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)

set(end "} /* namespace zentho */\n\n")
set(tail "")
if(EXISTS ${MADE} AND NOT IS_DIRECTORY ${MADE})
  file(SIZE ${MADE} size)
  string(LENGTH ${end} length)
  math(EXPR offset "${size} - ${length}")
  if(offset GREATER 0)
    file(READ ${MADE} tail OFFSET ${offset})
  endif()
endif()

set(problem "the program ended with the status ${status}")
if(status STREQUAL "0")
  set(problem "the program wrote no whole header")
  if(tail STREQUAL end)
    file(RENAME ${MADE} ${HEADER} RESULT problem)
  endif()
endif()
if(NOT problem STREQUAL "0")
  message(NOTICE "${IDL}:\n${output}")
  message(FATAL_ERROR "idlgen made no header of ${IDL}: ${problem}")
endif()
