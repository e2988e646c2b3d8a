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

# A cache entry of the project shows wherever a variable is not set. So all variables are set first,
# and the arguments get a prefix that no project uses.
function(idlgen_generate)
  cmake_parse_arguments(PARSE_ARGV 0 _idlgen "" "TARGET;BASE_DIR" "FILES;DEPENDS")
  _idlgen_check_arguments()
  set(base "${CMAKE_CURRENT_SOURCE_DIR}")
  if(DEFINED _idlgen_BASE_DIR)
    cmake_path(ABSOLUTE_PATH _idlgen_BASE_DIR NORMALIZE OUTPUT_VARIABLE base)
  endif()
  set(include "${CMAKE_CURRENT_BINARY_DIR}/${_idlgen_TARGET}.idlgen/include")

  set(names "")
  foreach(file IN LISTS _idlgen_FILES)
    _idlgen_locate("${file}" "${base}" "${include}" idl name)
    list(FIND names "${name}" index)
    if(NOT index EQUAL -1)
      list(GET _idlgen_FILES ${index} other)
      message(FATAL_ERROR "idlgen_generate: ${other} and ${file} would both generate ${name}")
    endif()
    list(APPEND names "${name}")
    _idlgen_add_command("${idl}" "${include}" "${name}" "${_idlgen_DEPENDS}")
  endforeach()
  _idlgen_remove_other_headers("${include}" "${names}")
  _idlgen_add_library("${_idlgen_TARGET}" "${include}" "${names}")
endfunction()

# Checks the arguments of the calling idlgen_generate.
function(_idlgen_check_arguments)
  # The DEPENDS of a project may be a variable that is empty.
  list(REMOVE_ITEM _idlgen_KEYWORDS_MISSING_VALUES DEPENDS)
  if(_idlgen_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "idlgen_generate: unknown argument: ${_idlgen_UNPARSED_ARGUMENTS}")
  endif()
  if(_idlgen_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "idlgen_generate: no value after ${_idlgen_KEYWORDS_MISSING_VALUES}")
  endif()
  if("${_idlgen_TARGET}" STREQUAL "" OR "${_idlgen_FILES}" STREQUAL "")
    message(FATAL_ERROR "idlgen_generate: TARGET and FILES are required")
  endif()
  if(NOT TARGET idlgen::idlgen-header)
    message(FATAL_ERROR "idlgen_generate: there is no idlgen-header to run")
  endif()
endfunction()

# Adds the command that generates one header.
function(_idlgen_add_command idl include name depends)
  # Ninja compiles nothing again if a command leaves the header as it is. make would repeat the
  # command in each build.
  set(options "")
  if(CMAKE_GENERATOR MATCHES "^Ninja")
    set(options --if-changed)
  endif()
  get_target_property(stamp idlgen::idlgen-header IDLGEN_STAMP)
  if(stamp)
    list(APPEND depends "${stamp}")
  endif()
  add_custom_command(
    OUTPUT "${include}/${name}"
    COMMAND idlgen::idlgen-header ${options} "${idl}" "${include}/${name}"
    DEPENDS "${idl}" idlgen::idlgen-header ${depends}
    COMMENT "Generating ${name}"
    VERBATIM)
endfunction()

# Removes the headers of IDL files that are not listed any more.
function(_idlgen_remove_other_headers include names)
  string(REPLACE "*" "[*]" pattern "${include}")
  file(GLOB_RECURSE others RELATIVE "${include}" "${pattern}/*.h")
  list(REMOVE_ITEM others ${names})
  foreach(name IN LISTS others)
    file(REMOVE "${include}/${name}")
  endforeach()
endfunction()

# Adds the library and the target that generates its headers.
function(_idlgen_add_library target include names)
  list(TRANSFORM names PREPEND "${include}/" OUTPUT_VARIABLE headers)
  # ALL: headers that nothing links can be installed, too.
  add_custom_target("${target}_generate" ALL DEPENDS ${headers})
  add_library("${target}" INTERFACE)
  add_dependencies("${target}" "${target}_generate")
  target_sources("${target}" INTERFACE FILE_SET HEADERS BASE_DIRS "${include}" FILES ${headers})
  # SYSTEM: the functions of empty requests have unused parameters.
  target_include_directories("${target}" SYSTEM INTERFACE "$<BUILD_INTERFACE:${include}>")
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
  set(program "${installed}")
  set(problem "The program is missing from its package: ${program}")
  if(IDLGEN_HEADER_EXECUTABLE)
    cmake_path(ABSOLUTE_PATH IDLGEN_HEADER_EXECUTABLE BASE_DIRECTORY "${CMAKE_SOURCE_DIR}" NORMALIZE
               OUTPUT_VARIABLE program)
    set(problem "IDLGEN_HEADER_EXECUTABLE does not exist or is a directory: ${program}")
  elseif(CMAKE_CROSSCOMPILING)
    find_program(_idlgen_program idlgen-header PATHS ENV PATH
                 NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    set(program "${_idlgen_program}")
    set(problem "This is a cross build, and there is no idlgen-header for the build machine in its \
PATH. Install one there or set IDLGEN_HEADER_EXECUTABLE to it.")
  endif()
  if(EXISTS "${program}" AND NOT IS_DIRECTORY "${program}")
    set(problem "")
    _idlgen_create_target("${program}")
  endif()
  set(${problem_variable} "${problem}" PARENT_SCOPE)
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
  # A program with other contents may be older than the headers. They depend on the stamp, too, which
  # is written only if the contents have changed.
  set(stamp "${CMAKE_BINARY_DIR}/idlgen-header.sha256")
  file(SHA256 "${program}" hash)
  file(CONFIGURE OUTPUT "${stamp}" CONTENT "${hash}\n")
  add_executable(idlgen::idlgen-header IMPORTED GLOBAL)
  set_target_properties(idlgen::idlgen-header PROPERTIES
    IMPORTED_LOCATION "${program}" IDLGEN_STAMP "${stamp}")
endfunction()

# CMake writes some characters to build files unquoted. Ninja, make or the shell would then read
# another path, or several.
function(_idlgen_check_path path)
  set(unsupported "[][?#<>|\\;\t\r\n]|\\$\\(")
  if(CMAKE_GENERATOR MATCHES "Makefiles")
    string(APPEND unsupported "|[*:%]")
  endif()
  if(path MATCHES "${unsupported}")
    message(FATAL_ERROR "idlgen: CMake does not support \"${CMAKE_MATCH_0}\" in the path ${path}")
  endif()
endfunction()
