# idlgen_generate(TARGET <target> FILES <file>... [BASE_DIR <directory>...]
#                 [DEPENDS <target or file>...])
#
# doc/builds.md describes the arguments.
cmake_policy(VERSION 3.23)

# A cache entry of the project shows wherever a variable is not set. So all variables are set first,
# and the arguments get a prefix that no project uses.
function(idlgen_generate)
  cmake_parse_arguments(PARSE_ARGV 0 _idlgen "" "" "TARGET;FILES;BASE_DIR;DEPENDS")
  _idlgen_check_arguments()
  _idlgen_get_base_dirs(bases)
  set(include "${CMAKE_CURRENT_BINARY_DIR}/${_idlgen_TARGET}.idlgen/include")
  set(idls "")
  set(names "")
  foreach(file IN LISTS _idlgen_FILES)
    _idlgen_locate("${file}" "${bases}" idl name)
    _idlgen_check_path("${include}/${name}")
    list(APPEND idls "${idl}")
    list(APPEND names "${name}")
  endforeach()
  _idlgen_check_names("${_idlgen_FILES}" "${names}")
  foreach(idl name IN ZIP_LISTS idls names)
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
  if(NOT _idlgen_TARGET MATCHES "^[A-Za-z0-9_.+-]+$")
    message(FATAL_ERROR "idlgen_generate: TARGET takes one name, not ${_idlgen_TARGET}")
  endif()
  if(TARGET "${_idlgen_TARGET}")
    message(FATAL_ERROR "idlgen_generate: there is a target ${_idlgen_TARGET} already")
  endif()
  if(NOT TARGET idlgen::idlgen-header)
    message(FATAL_ERROR "idlgen_generate: there is no idlgen-header to run")
  endif()
  if(IDLGEN_HEADER_EXECUTABLE)
    _idlgen_report_ignored("${IDLGEN_HEADER_EXECUTABLE}")
  endif()
endfunction()

# Returns the base directories of the calling idlgen_generate, inner ones before outer ones.
function(_idlgen_get_base_dirs variable)
  if("${_idlgen_BASE_DIR}" STREQUAL "")
    set(_idlgen_BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
  endif()
  set(bases "${CMAKE_CURRENT_BINARY_DIR}")
  foreach(base IN LISTS _idlgen_BASE_DIR)
    cmake_path(ABSOLUTE_PATH base NORMALIZE)
    list(APPEND bases "${base}")
  endforeach()
  list(SORT bases ORDER DESCENDING)
  set(${variable} "${bases}" PARENT_SCOPE)
endfunction()

# Returns the absolute path of an IDL file and the name of its header: its path relative to the
# innermost base directory that contains it.
function(_idlgen_locate file bases idl_variable name_variable)
  cmake_path(ABSOLUTE_PATH file NORMALIZE OUTPUT_VARIABLE idl)
  get_source_file_property(generated "${idl}" GENERATED)
  if(NOT generated AND (NOT EXISTS "${idl}" OR IS_DIRECTORY "${idl}"))
    message(FATAL_ERROR "idlgen_generate: file not found: ${file}")
  endif()
  _idlgen_check_path("${idl}")
  foreach(base IN LISTS bases)
    cmake_path(IS_PREFIX base "${idl}" NORMALIZE inside)
    if(inside)
      cmake_path(RELATIVE_PATH idl BASE_DIRECTORY "${base}" OUTPUT_VARIABLE name)
      break()
    endif()
  endforeach()
  if(NOT inside)
    list(JOIN bases ", " bases)
    message(FATAL_ERROR "idlgen_generate: ${file} is in none of the base directories ${bases}")
  endif()

  # As in idlgen, only the last extension is replaced.
  cmake_path(GET name EXTENSION LAST_ONLY extension)
  if(extension MATCHES "^\\.?$")
    message(FATAL_ERROR "idlgen_generate: ${file} has no extension to replace with .h")
  endif()
  cmake_path(REPLACE_EXTENSION name LAST_ONLY .h)
  set(${idl_variable} "${idl}" PARENT_SCOPE)
  set(${name_variable} "${name}" PARENT_SCOPE)
endfunction()

# Checks that the headers have different names, and that none is a directory of another one.
function(_idlgen_check_names files names)
  set(unique "${names}")
  list(REMOVE_DUPLICATES unique)
  if(NOT unique STREQUAL names)
    _idlgen_report_duplicate("${files}" "${names}")
  endif()
  foreach(name IN LISTS names)
    cmake_path(GET name PARENT_PATH directory)
    while(directory MATCHES "\\.h(/|$)")
      if(directory IN_LIST names)
        message(FATAL_ERROR "idlgen_generate: ${directory} would be a header and a directory")
      endif()
      cmake_path(GET directory PARENT_PATH directory)
    endwhile()
  endforeach()
endfunction()

function(_idlgen_report_duplicate files names)
  set(earlier "")
  foreach(file name IN ZIP_LISTS files names)
    list(FIND earlier "${name}" index)
    if(NOT index EQUAL -1)
      list(GET files ${index} other)
      message(FATAL_ERROR "idlgen_generate: ${other} and ${file} would both generate ${name}")
    endif()
    list(APPEND earlier "${name}")
  endforeach()
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
# Sets the variable to an error message if there is no such program, otherwise to an empty string.
function(idlgen_import_program installed problem_variable)
  set(IDLGEN_HEADER_EXECUTABLE "" CACHE FILEPATH "The idlgen-header to run, if not the default")
  set(program "${installed}")
  set(problem "The program is missing from its package: ${program}")
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
# make or the shell would read another path, or several. Otherwise, returns an empty string.
function(_idlgen_find_unsupported path variable)
  set(unsupported "[][?#<>|\\;\t\r\n]|\\$\\(")
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
