# idlgen_generate(TARGET <target> FILES <file>... [BASE_DIR <dir>] [DEPENDS <target or file>...])
#
# Adds the INTERFACE library <target>, whose users see the headers of the IDL files, and the custom
# target <target>_generate, which makes them.
#
#   FILES     relative to the current source directory, or absolute
#   BASE_DIR  where the paths in include statements start; the current source directory unless given
#   DEPENDS   what makes those IDL files that the build itself makes; a file that is made in another
#             directory has to be marked GENERATED in this one
#
# The program writes next to its input. So each file is copied below the build tree, at its path
# below BASE_DIR, and its header goes on from there to the target's include directory, which holds
# headers only, and only whole ones.
cmake_minimum_required(VERSION 3.23)

function(idlgen_generate)
  foreach(argument IN LISTS ARGV)
    if(argument STREQUAL "")
      message(FATAL_ERROR "idlgen_generate: an argument is empty: ${ARGV}")
    endif()
  endforeach()
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;BASE_DIR" "FILES;DEPENDS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "idlgen_generate: unknown argument: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "idlgen_generate: nothing follows ${arg_KEYWORDS_MISSING_VALUES}")
  endif()
  if(NOT DEFINED arg_TARGET)
    message(FATAL_ERROR "idlgen_generate: TARGET is missing")
  endif()
  if(NOT arg_TARGET MATCHES "^[A-Za-z0-9_.+-]+$")
    message(FATAL_ERROR "idlgen_generate: no target can have the name ${arg_TARGET}")
  endif()
  if(NOT DEFINED arg_FILES)
    message(FATAL_ERROR "idlgen_generate: FILES is missing for the target ${arg_TARGET}")
  endif()
  if(NOT TARGET idlgen::idlgen)
    message(FATAL_ERROR "idlgen_generate: there is no program idlgen::idlgen to run")
  endif()
  foreach(target ${arg_TARGET} ${arg_TARGET}_generate)
    if(TARGET ${target})
      message(FATAL_ERROR "idlgen_generate: there is a target ${target} already")
    endif()
  endforeach()

  set(base ${CMAKE_CURRENT_SOURCE_DIR})
  if(DEFINED arg_BASE_DIR)
    cmake_path(ABSOLUTE_PATH arg_BASE_DIR NORMALIZE OUTPUT_VARIABLE base)
  endif()

  set(directory ${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}.idlgen)
  set(script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/idlgen_make_header.cmake)
  set(headers)
  foreach(file IN LISTS arg_FILES)
    _idlgen_locate("${file}" "${base}" idl copy header)
    if(${directory}/include/${header} IN_LIST headers)
      message(FATAL_ERROR "idlgen_generate: ${file} gives the header of another file, ${header}")
    endif()
    list(APPEND headers ${directory}/include/${header})
    add_custom_command(
      OUTPUT ${directory}/include/${header}
      COMMAND ${CMAKE_COMMAND}
              -D PROGRAM=$<TARGET_FILE:idlgen::idlgen>
              -D IDL=${idl}
              -D COPY=${directory}/work/${copy}
              -D MADE=${directory}/work/${header}
              -D HEADER=${directory}/include/${header}
              -P ${script}
      DEPENDS ${idl} $<TARGET_FILE:idlgen::idlgen> ${script} ${arg_DEPENDS}
      COMMENT "Generating ${header}"
      VERBATIM)
  endforeach()

  # What an IDL file has left that is no longer one of the target's.
  file(GLOB_RECURSE left ${directory}/include/*.h)
  list(REMOVE_ITEM left ${headers})
  if(left)
    file(REMOVE ${left})
  endif()

  add_custom_target(${arg_TARGET}_generate ALL DEPENDS ${headers})  # Some are only installed.
  add_library(${arg_TARGET} INTERFACE)
  add_dependencies(${arg_TARGET} ${arg_TARGET}_generate)
  target_sources(${arg_TARGET} INTERFACE
    FILE_SET HEADERS BASE_DIRS ${directory}/include FILES ${headers})
endfunction()

# Finds an IDL file: its absolute path, and its path and that of its header below the base
# directory. Refuses a file that cannot have a header there.
function(_idlgen_locate file base idl_variable copy_variable header_variable)
  cmake_path(ABSOLUTE_PATH file NORMALIZE OUTPUT_VARIABLE idl)
  get_source_file_property(generated ${idl} GENERATED)
  if(NOT generated AND (NOT EXISTS ${idl} OR IS_DIRECTORY ${idl}))
    message(FATAL_ERROR "idlgen_generate: there is no file ${file}")
  endif()
  cmake_path(IS_PREFIX base ${idl} NORMALIZE inside)
  if(NOT inside)
    message(FATAL_ERROR "idlgen_generate: ${file} is not below the base directory ${base}")
  endif()

  if(file MATCHES "[#<>]")
    message(FATAL_ERROR "idlgen_generate: ${file} has one of # < > in its name, as no output can")
  endif()

  # The last extension only, as the program has it.
  cmake_path(GET idl EXTENSION LAST_ONLY extension)
  if(extension MATCHES "^\\.?$")
    message(FATAL_ERROR "idlgen_generate: ${file} has no extension for .h to replace")
  endif()
  if(extension STREQUAL ".h")
    message(FATAL_ERROR "idlgen_generate: ${file} would be overwritten by its own header")
  endif()
  cmake_path(RELATIVE_PATH idl BASE_DIRECTORY ${base} OUTPUT_VARIABLE copy)
  cmake_path(REPLACE_EXTENSION copy LAST_ONLY .h OUTPUT_VARIABLE header)

  set(${idl_variable} ${idl} PARENT_SCOPE)
  set(${copy_variable} ${copy} PARENT_SCOPE)
  set(${header_variable} ${header} PARENT_SCOPE)
endfunction()
