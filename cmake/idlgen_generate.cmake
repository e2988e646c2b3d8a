# idlgen_generate(TARGET <target> FILES <file>... [BASE_DIR <dir>] [DEPENDS <target or file>...])
#
# Adds the INTERFACE library <target>, whose users can include the headers of the IDL files, and the
# custom target <target>_generate, which generates them.
#
#   FILES     relative to the current source directory, or absolute
#   BASE_DIR  the directory that paths in include statements are relative to; default: the current
#             source directory. For IDL files in the current binary directory, paths are relative to
#             that directory, unless BASE_DIR is below it.
#   DEPENDS   targets or files that generate IDL files. Files that another CMakeLists.txt generates
#             need the source file property GENERATED in this directory.
#
# The headers are written to ${CMAKE_CURRENT_BINARY_DIR}/<target>.idlgen/include, at the path of the
# IDL file relative to BASE_DIR.
cmake_policy(VERSION 3.23)

function(idlgen_generate)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;BASE_DIR" "FILES;DEPENDS")
  list(REMOVE_ITEM arg_KEYWORDS_MISSING_VALUES DEPENDS)
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "idlgen_generate: unknown argument: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "idlgen_generate: no value after ${arg_KEYWORDS_MISSING_VALUES}")
  endif()
  if("${arg_TARGET}" STREQUAL "" OR "${arg_FILES}" STREQUAL "")
    message(FATAL_ERROR "idlgen_generate: TARGET and FILES are required")
  endif()
  if(NOT TARGET idlgen::idlgen-header)
    message(FATAL_ERROR "idlgen_generate: there is no idlgen-header to run")
  endif()

  set(base ${CMAKE_CURRENT_SOURCE_DIR})
  if(DEFINED arg_BASE_DIR)
    cmake_path(ABSOLUTE_PATH arg_BASE_DIR NORMALIZE OUTPUT_VARIABLE base)
  endif()
  set(include ${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}.idlgen/include)
  # Ninja compiles nothing again if a command leaves the header as it is. make would repeat the command
  # in each build.
  set(options)
  if(CMAKE_GENERATOR MATCHES "^Ninja")
    set(options --if-changed)
  endif()
  # idlgen_import_program writes this file if the program is not built here.
  set(stamp ${CMAKE_BINARY_DIR}/CMakeFiles/idlgen-header.sha256)
  if(EXISTS "${stamp}")
    list(APPEND arg_DEPENDS ${stamp})
  endif()

  set(names)
  foreach(file IN LISTS arg_FILES)
    _idlgen_locate("${file}" "${base}" "${include}" idl name)
    if(DEFINED "_idlgen_${name}")
      message(FATAL_ERROR
              "idlgen_generate: ${_idlgen_${name}} and ${file} would both generate ${name}")
    endif()
    set("_idlgen_${name}" "${file}")
    list(APPEND names "${name}")
    add_custom_command(
      OUTPUT ${include}/${name}
      COMMAND idlgen::idlgen-header ${options} ${idl} ${include}/${name}
      DEPENDS ${idl} idlgen::idlgen-header ${arg_DEPENDS}
      COMMENT "Generating ${name}"
      VERBATIM)
  endforeach()

  # The headers of IDL files that are not listed any more.
  string(REPLACE "*" "[*]" pattern "${include}")
  file(GLOB_RECURSE old RELATIVE ${include} "${pattern}/*.h")
  list(REMOVE_ITEM old ${names})
  foreach(name IN LISTS old)
    file(REMOVE "${include}/${name}")
  endforeach()

  # ALL: headers that nothing links can be installed, too.
  list(TRANSFORM names PREPEND ${include}/ OUTPUT_VARIABLE headers)
  add_custom_target(${arg_TARGET}_generate ALL DEPENDS ${headers})
  add_library(${arg_TARGET} INTERFACE)
  add_dependencies(${arg_TARGET} ${arg_TARGET}_generate)
  target_sources(${arg_TARGET} INTERFACE
    FILE_SET HEADERS BASE_DIRS ${include} FILES ${headers})
  # SYSTEM: the functions of empty requests have unused parameters.
  target_include_directories(${arg_TARGET} SYSTEM INTERFACE $<BUILD_INTERFACE:${include}>)
endfunction()

# idlgen_import_program(<installed> <variable>)
#
# Creates the imported target idlgen::idlgen-header:
#   - for the program that IDLGEN_HEADER_EXECUTABLE names, if set,
#   - otherwise, in a cross build, for one from the PATH of the build machine,
#   - otherwise, for the installed program.
# Sets the variable to an error message if the program does not exist, otherwise to an empty string.
function(idlgen_import_program installed problem_variable)
  set(IDLGEN_HEADER_EXECUTABLE "" CACHE FILEPATH "The idlgen-header to run, if not the default")
  set(program ${installed})
  set(problem "The program is missing from its package: ${program}")
  if(IDLGEN_HEADER_EXECUTABLE)
    cmake_path(ABSOLUTE_PATH IDLGEN_HEADER_EXECUTABLE BASE_DIRECTORY ${CMAKE_SOURCE_DIR} NORMALIZE
               OUTPUT_VARIABLE program)
    set(problem "IDLGEN_HEADER_EXECUTABLE does not exist or is a directory: ${program}")
  elseif(CMAKE_CROSSCOMPILING)
    find_program(_idlgen_program idlgen-header PATHS ENV PATH
                 NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    set(program ${_idlgen_program})
    set(problem "This is a cross build, and there is no idlgen-header for the build machine in its \
PATH. Install one there or set IDLGEN_HEADER_EXECUTABLE to it.")
  endif()
  if(EXISTS "${program}" AND NOT IS_DIRECTORY "${program}")
    set(problem "")
    _idlgen_create_target(${program})
  endif()
  set(${problem_variable} ${problem} PARENT_SCOPE)
endfunction()

# Returns the absolute path of an IDL file, and the path of its header below the include directory.
function(_idlgen_locate file base include idl_variable name_variable)
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

  # As in idlgen, only the last extension is replaced.
  cmake_path(RELATIVE_PATH idl BASE_DIRECTORY "${base}" OUTPUT_VARIABLE name)
  cmake_path(GET name EXTENSION LAST_ONLY extension)
  if(extension MATCHES "^\\.?$")
    message(FATAL_ERROR "idlgen_generate: ${file} has no extension to replace with .h")
  endif()
  cmake_path(REPLACE_EXTENSION name LAST_ONLY .h)
  _idlgen_check_path("${idl}")
  _idlgen_check_path("${include}/${name}")
  set(${idl_variable} "${idl}" PARENT_SCOPE)
  set(${name_variable} "${name}" PARENT_SCOPE)
endfunction()

function(_idlgen_create_target program)
  if(TARGET idlgen::idlgen-header)
    get_target_property(first idlgen::idlgen-header IMPORTED_LOCATION)
    if(NOT first)
      set(first "the idlgen-header that it builds")
    endif()
    if(NOT first STREQUAL program)
      message(WARNING "This build generates headers with ${first}. It ignores ${program}.")
    endif()
    return()
  endif()
  _idlgen_check_path("${program}")
  _idlgen_check_path("${CMAKE_BINARY_DIR}")
  add_executable(idlgen::idlgen-header IMPORTED GLOBAL)
  set_target_properties(idlgen::idlgen-header PROPERTIES IMPORTED_LOCATION ${program})

  # A program with other contents may be older than the headers. They depend on this file, too, which
  # is written only if the contents have changed.
  file(SHA256 ${program} hash)
  file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/CMakeFiles/idlgen-header.sha256" CONTENT "${hash}\n")
endfunction()

# CMake writes some characters to build files unquoted. Ninja, make or the shell would then read another
# path, or several.
function(_idlgen_check_path path)
  set(unsupported "[][?#<>|\\;\t\r\n]|\\$\\(")
  if(CMAKE_GENERATOR MATCHES "Makefiles")
    string(APPEND unsupported "|[*:%]")
  endif()
  if(path MATCHES "${unsupported}")
    message(FATAL_ERROR "idlgen: CMake does not support \"${CMAKE_MATCH_0}\" in the path ${path}")
  endif()
endfunction()
