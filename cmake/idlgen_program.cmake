# The program that idlgen_generate runs, and the paths that CMake supports.
cmake_policy(VERSION 3.23)

# idlgen_import_program(<installed> <variable>)
#
# Creates the imported target idlgen::idlgen-header:
#   - for the program that IDLGEN_HEADER_EXECUTABLE names, if set,
#   - otherwise, in a cross build, for one from the PATH of the build machine,
#   - otherwise, for the installed program.
# Sets the variable to an error message if there is no such program, otherwise to an empty string.
function(idlgen_import_program installed problem_variable)
  set(IDLGEN_HEADER_EXECUTABLE "" CACHE FILEPATH "The idlgen-header to run, if not the default")
  set(program "${installed}")
  set(problem "The program of the package is missing or not executable: ${program}")
  if(IDLGEN_HEADER_EXECUTABLE)
    set(program "${IDLGEN_HEADER_EXECUTABLE}")
    set(problem "IDLGEN_HEADER_EXECUTABLE is not the absolute path of a program: ${program}")
  elseif(CMAKE_CROSSCOMPILING)
    _idlgen_search_path(program)
    set(problem "This is a cross build, and there is no idlgen-header for the build machine in its \
PATH. Install one there or set IDLGEN_HEADER_EXECUTABLE to it.")
  endif()
  _idlgen_is_program("${program}" works)
  if(works)
    _idlgen_find_problem("${program}" problem)
  endif()
  if("${problem}" STREQUAL "")
    _idlgen_create_target("${program}")
  endif()
  set(${problem_variable} "${problem}" PARENT_SCOPE)
endfunction()

# Returns why an existing program cannot be used in this build, or an empty string.
function(_idlgen_find_problem program variable)
  set(problem "")
  execute_process(COMMAND test -r "${program}" RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    set(problem "The program cannot be read: ${program}")
  endif()
  execute_process(COMMAND "${program}" --help OUTPUT_VARIABLE help ERROR_QUIET)
  if("${problem}" STREQUAL "" AND NOT help MATCHES "--check")
    set(problem "The program has no option --check. It may be of an earlier version: ${program}")
  endif()
  foreach(path IN ITEMS "${program}" "${CMAKE_BINARY_DIR}")
    if("${problem}" STREQUAL "")
      _idlgen_find_unsupported("${path}" problem)
    endif()
  endforeach()
  set(${variable} "${problem}" PARENT_SCOPE)
endfunction()

# Returns whether the path is that of an executable file, and absolute.
function(_idlgen_is_program path variable)
  cmake_path(IS_ABSOLUTE path absolute)
  execute_process(COMMAND test -f "${path}" -a -x "${path}" RESULT_VARIABLE status)
  set(works FALSE)
  if(absolute AND status EQUAL 0)
    set(works TRUE)
  endif()
  set(${variable} ${works} PARENT_SCOPE)
endfunction()

# Searches the PATH for idlgen-header. Keeps the result, because an IDE may configure again with
# another PATH.
function(_idlgen_search_path variable)
  _idlgen_is_program("${_IDLGEN_HEADER_IN_PATH}" works)
  if(NOT works)
    unset(_IDLGEN_HEADER_IN_PATH CACHE)
  endif()
  find_program(_IDLGEN_HEADER_IN_PATH idlgen-header PATHS ENV PATH
               NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  set_property(CACHE _IDLGEN_HEADER_IN_PATH PROPERTY TYPE INTERNAL)
  set(${variable} "${_IDLGEN_HEADER_IN_PATH}" PARENT_SCOPE)
endfunction()

# Reports that the build uses another program than this one.
function(_idlgen_report_ignored program)
  get_target_property(first idlgen::idlgen-header IMPORTED_LOCATION)
  if(NOT first)
    set(first "the idlgen-header that it builds")
  endif()
  file(REAL_PATH "${first}" first_file)
  file(REAL_PATH "${program}" file)
  if(NOT first_file STREQUAL file)
    message(WARNING "This build generates headers with ${first}. It ignores ${program}.")
  endif()
endfunction()

function(_idlgen_create_target program)
  if(TARGET idlgen::idlgen-header)
    _idlgen_report_ignored("${program}")
    return()
  endif()

  # A program with other contents may be older than the headers. They also depend on the stamp, which
  # is written only if the contents have changed.
  set(stamp "${CMAKE_BINARY_DIR}/idlgen-header.sha256")
  file(SHA256 "${program}" hash)
  file(CONFIGURE OUTPUT "${stamp}" CONTENT "${hash}\n")
  add_executable(idlgen::idlgen-header IMPORTED GLOBAL)
  set_target_properties(idlgen::idlgen-header PROPERTIES
    IMPORTED_LOCATION "${program}" IDLGEN_STAMP "${stamp}")
endfunction()

# Returns a message if CMake writes a character of the path to build files unquoted, so that Ninja,
# make or the shell would read another path, or several, or if CMake takes the path to begin with a
# drive. Otherwise, returns an empty string.
function(_idlgen_find_unsupported path variable)
  set(unsupported "[][?#<>|\\;\t\r\n]|\\$[({]|^[A-Za-z]:")
  if(CMAKE_GENERATOR MATCHES "Makefiles")
    string(APPEND unsupported "|[*:%]")
  endif()
  set(${variable} "" PARENT_SCOPE)
  if(path MATCHES "${unsupported}")
    set(${variable} "CMake does not support \"${CMAKE_MATCH_0}\" in the path ${path}" PARENT_SCOPE)
  endif()
endfunction()

function(_idlgen_check_path path)
  _idlgen_find_unsupported("${path}" problem)
  if(NOT "${problem}" STREQUAL "")
    message(FATAL_ERROR "idlgen: ${problem}")
  endif()
endfunction()
