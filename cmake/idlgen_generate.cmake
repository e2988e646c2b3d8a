# idlgen_generate(TARGET <target> FILES <file>... [BASE_DIR <dir>] [DEPENDS <target or file>...])
#
# Adds the INTERFACE library <target>, whose users can include the headers of the IDL files, and the
# custom target <target>_generate, which generates them.
#
#   FILES     relative to the current source directory, or absolute
#   BASE_DIR  the directory that paths in include statements are relative to; default: the current
#             source directory. Files in the current binary directory use that instead, unless
#             BASE_DIR is inside it.
#   DEPENDS   targets or files that generate IDL files. Files that another CMakeLists.txt generates
#             need the source file property GENERATED in this directory.
#
# The headers are written to ${CMAKE_CURRENT_BINARY_DIR}/<target>.idlgen/include, at the path of the
# IDL file relative to BASE_DIR.
cmake_minimum_required(VERSION 3.23)

function(idlgen_generate)
  foreach(argument IN LISTS ARGV)
    if(argument STREQUAL "")
      message(FATAL_ERROR "idlgen_generate: empty argument: ${ARGV}")
    endif()
  endforeach()
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;BASE_DIR" "FILES;DEPENDS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "idlgen_generate: unknown argument: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "idlgen_generate: no value after ${arg_KEYWORDS_MISSING_VALUES}")
  endif()
  if(NOT DEFINED arg_TARGET)
    message(FATAL_ERROR "idlgen_generate: missing TARGET")
  endif()
  if(NOT arg_TARGET MATCHES "^[A-Za-z0-9_.+-]+$")
    message(FATAL_ERROR "idlgen_generate: not a valid target name: ${arg_TARGET}")
  endif()
  if(NOT DEFINED arg_FILES)
    message(FATAL_ERROR "idlgen_generate: missing FILES for the target ${arg_TARGET}")
  endif()
  if(NOT TARGET idlgen::idlgen)
    get_property(problem GLOBAL PROPERTY IDLGEN_PROBLEM)
    message(FATAL_ERROR "idlgen_generate: the target idlgen::idlgen does not exist. ${problem}")
  endif()
  foreach(target ${arg_TARGET} ${arg_TARGET}_generate)
    if(TARGET ${target})
      message(FATAL_ERROR "idlgen_generate: the target ${target} already exists")
    endif()
  endforeach()

  set(base ${CMAKE_CURRENT_SOURCE_DIR})
  if(DEFINED arg_BASE_DIR)
    cmake_path(ABSOLUTE_PATH arg_BASE_DIR NORMALIZE OUTPUT_VARIABLE base)
  endif()

  get_property(command GLOBAL PROPERTY IDLGEN_COMMAND)
  get_property(dependencies GLOBAL PROPERTY IDLGEN_DEPENDENCIES)
  get_property(config_directory GLOBAL PROPERTY IDLGEN_CONFIG_DIRECTORY)
  set(directory ${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}.idlgen)
  set(include ${directory}/include${config_directory})
  set(names)
  set(headers)
  foreach(file IN LISTS arg_FILES)
    _idlgen_locate("${file}" "${base}" idl name)
    if(name IN_LIST names)
      message(FATAL_ERROR "idlgen_generate: ${file} and another file would both generate ${name}")
    endif()
    list(APPEND names ${name})
    list(APPEND headers ${include}/${name})
    add_custom_command(
      OUTPUT ${include}/${name}
      COMMAND ${command} ${idl} ${include}/${name}
      DEPENDS ${idl} ${dependencies} ${arg_DEPENDS}
      COMMENT "Generating ${name}"
      VERBATIM)
  endforeach()
  list(LENGTH arg_FILES files_count)
  list(LENGTH headers headers_count)
  if(NOT headers_count EQUAL files_count)  # CMake does not split lists inside [ ].
    message(FATAL_ERROR "idlgen_generate: unbalanced [ or ] in a path below ${directory}")
  endif()
  _idlgen_remove_old_headers(${directory}/include "${config_directory}" "${names}")
  set_property(GLOBAL APPEND PROPERTY IDLGEN_DIRECTORIES ${directory})
  set_property(DIRECTORY APPEND PROPERTY ADDITIONAL_CLEAN_FILES ${directory})

  # ALL: headers that nothing links can be installed, too.
  add_custom_target(${arg_TARGET}_generate ALL DEPENDS ${headers})
  add_library(${arg_TARGET} INTERFACE)
  add_dependencies(${arg_TARGET} ${arg_TARGET}_generate)
  target_sources(${arg_TARGET} INTERFACE
    FILE_SET HEADERS BASE_DIRS ${include} FILES ${headers})
endfunction()

# Returns the absolute path of an IDL file, and the path of its header below the include directory.
# Rejects files that cannot have a header there.
function(_idlgen_locate file base idl_variable name_variable)
  if(file MATCHES "\\$<")
    message(FATAL_ERROR "idlgen_generate: FILES does not support generator expressions: ${file}")
  endif()
  if(file MATCHES "[#<>|\\;\t\n]|\\$\\(" OR (file MATCHES ":" AND CMAKE_GENERATOR MATCHES "Makefiles"))
    message(FATAL_ERROR "idlgen_generate: ${file} contains a character that CMake does not support \
in the names of generated files: # < > | \\ ; $( tab, line break or, with make, colon")
  endif()

  cmake_path(ABSOLUTE_PATH file NORMALIZE OUTPUT_VARIABLE idl)
  cmake_path(IS_PREFIX base "${idl}" NORMALIZE inside)
  cmake_path(IS_PREFIX base "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE base_is_above)
  if(base_is_above OR NOT inside)
    cmake_path(IS_PREFIX CMAKE_CURRENT_BINARY_DIR "${idl}" NORMALIZE inside_binary)
    if(inside_binary)
      set(base "${CMAKE_CURRENT_BINARY_DIR}")
      set(inside TRUE)
    endif()
  endif()

  get_source_file_property(generated "${idl}" GENERATED)
  if(NOT generated AND (NOT EXISTS "${idl}" OR IS_DIRECTORY "${idl}"))
    message(FATAL_ERROR "idlgen_generate: file not found: ${file}")
  endif()
  if(NOT inside)
    message(FATAL_ERROR "idlgen_generate: ${file} is not below the base directory ${base}")
  endif()
  cmake_path(RELATIVE_PATH idl BASE_DIRECTORY "${base}" OUTPUT_VARIABLE name)

  # As in idlgen, only the last extension is replaced.
  cmake_path(GET name EXTENSION LAST_ONLY extension)
  if(extension MATCHES "^\\.?$")
    message(FATAL_ERROR "idlgen_generate: ${file} has no extension to replace with .h")
  endif()
  if(extension STREQUAL ".h")
    message(FATAL_ERROR "idlgen_generate: ${file} already has the extension .h")
  endif()
  cmake_path(REPLACE_EXTENSION name LAST_ONLY .h)

  set(${idl_variable} "${idl}" PARENT_SCOPE)
  set(${name_variable} "${name}" PARENT_SCOPE)
endfunction()

# Deletes the headers of IDL files that no longer belong to the target: those that are not in the list
# of names. Does not delete the temporary files of idlgen-header, as another build may be running.
function(_idlgen_remove_old_headers include config_directory names)
  string(REGEX REPLACE "[][*?]" "[\\0]" pattern "${include}")
  file(GLOB_RECURSE paths RELATIVE "${include}" "${pattern}/*.h")
  foreach(path IN LISTS paths)
    set(name "${path}")
    if(config_directory)
      string(REGEX REPLACE "^[^/]*/" "" name "${path}")
    endif()
    if(NOT name IN_LIST names AND NOT name MATCHES "(^|/)\\.idlgen-[0-9]+-[0-9]+\\.h$")
      file(REMOVE "${include}/${path}")
    endif()
  endforeach()
endfunction()

# Deletes the directories of targets that existed after the previous configuration but not any more.
function(_idlgen_remove_old_targets)
  get_property(directories GLOBAL PROPERTY IDLGEN_DIRECTORIES)
  foreach(directory IN LISTS IDLGEN_DIRECTORIES)
    if(NOT directory IN_LIST directories)
      file(REMOVE_RECURSE "${directory}")
    endif()
  endforeach()
  set(IDLGEN_DIRECTORIES "${directories}" CACHE INTERNAL "The directories of idlgen_generate")
endfunction()

# Runs once, at the end of the configuration.
get_property(scheduled GLOBAL PROPERTY IDLGEN_DIRECTORIES SET)
if(NOT scheduled)
  set_property(GLOBAL PROPERTY IDLGEN_DIRECTORIES "")
  cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL _idlgen_remove_old_targets)
endif()
