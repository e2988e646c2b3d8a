# idlgen_generate(TARGET <target> FILES <file>... [BASE_DIR <directory>...]
#                 [INCLUDE_DIRS <directory>...] [DEPENDS <target or file>...] [WERROR])
#
# doc/builds.md describes the arguments.
cmake_policy(VERSION 3.23)
include("${CMAKE_CURRENT_LIST_DIR}/idlgen_program.cmake")

# A cache entry of the project shows wherever a variable is not set. So all variables are set first,
# and the arguments get a prefix that no project uses.
function(idlgen_generate)
  cmake_parse_arguments(PARSE_ARGV 0 _idlgen
                        "WERROR" "" "TARGET;FILES;BASE_DIR;INCLUDE_DIRS;DEPENDS")
  _idlgen_check_arguments()
  _idlgen_get_base_dirs(bases)
  set(directory "${CMAKE_CURRENT_BINARY_DIR}/${_idlgen_TARGET}.idlgen")
  set(include "${directory}/include")
  set(idls "")
  set(names "")
  set(used_bases "")
  foreach(file IN LISTS _idlgen_FILES)
    _idlgen_locate("${file}" "${bases}" idl name base)
    _idlgen_check_path("${include}/${name}")
    list(APPEND idls "${idl}")
    list(APPEND names "${name}")
    list(APPEND used_bases "${base}")
  endforeach()
  _idlgen_check_names("${_idlgen_FILES}" "${names}")
  _idlgen_get_search_dirs("${used_bases}" search)
  _idlgen_get_dependencies(depends)
  foreach(idl name IN ZIP_LISTS idls names)
    _idlgen_add_command("${idl}" "${include}" "${name}" "${depends}")
  endforeach()
  _idlgen_remove_other_headers("${include}" "${names}")
  _idlgen_add_library("${_idlgen_TARGET}" "${include}" "${names}")
  _idlgen_add_check("${_idlgen_TARGET}" "${idls}" "${search}" "${directory}" "${depends}")
endfunction()

# Checks the arguments of the calling idlgen_generate.
function(_idlgen_check_arguments)
  # A project may give an empty variable for these.
  list(REMOVE_ITEM _idlgen_KEYWORDS_MISSING_VALUES DEPENDS INCLUDE_DIRS)
  # A keyword that is not known counts as one more value of the keyword before it.
  set(values "${_idlgen_TARGET}")
  list(POP_FRONT values)
  list(APPEND values ${_idlgen_FILES} ${_idlgen_BASE_DIR} ${_idlgen_INCLUDE_DIRS})
  set(unknown "${_idlgen_UNPARSED_ARGUMENTS}")
  foreach(value IN LISTS values)
    if(value MATCHES "^[A-Z_]+$" AND NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${value}")
      list(APPEND unknown "${value}")
    endif()
  endforeach()
  if(unknown)
    list(GET unknown 0 unknown)
    message(FATAL_ERROR "idlgen_generate: unknown argument: ${unknown}")
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
  _idlgen_get_given_bases(bases)
  list(APPEND bases "${CMAKE_CURRENT_BINARY_DIR}")
  list(SORT bases ORDER DESCENDING)
  set(${variable} "${bases}" PARENT_SCOPE)
endfunction()

function(_idlgen_get_given_bases variable)
  if("${_idlgen_BASE_DIR}" STREQUAL "")
    set(_idlgen_BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
  endif()
  set(bases "")
  foreach(base IN LISTS _idlgen_BASE_DIR)
    cmake_path(ABSOLUTE_PATH base NORMALIZE)
    list(APPEND bases "${base}")
  endforeach()
  set(${variable} "${bases}" PARENT_SCOPE)
endfunction()

# Returns the directories in which the check searches included files: the base directories in the
# order given, the current binary directory only if it is that of a file, and INCLUDE_DIRS.
function(_idlgen_get_search_dirs used_bases variable)
  _idlgen_get_given_bases(directories)
  list(APPEND directories ${used_bases})
  foreach(directory IN LISTS _idlgen_INCLUDE_DIRS)
    cmake_path(ABSOLUTE_PATH directory NORMALIZE)
    list(APPEND directories "${directory}")
  endforeach()
  list(REMOVE_DUPLICATES directories)
  foreach(directory IN LISTS directories)
    _idlgen_check_path("${directory}")
  endforeach()
  set(${variable} "${directories}" PARENT_SCOPE)
endfunction()

# Returns the absolute path of an IDL file, the innermost base directory that contains it, and the
# name of its header: its path relative to that directory.
function(_idlgen_locate file bases idl_variable name_variable base_variable)
  cmake_path(ABSOLUTE_PATH file NORMALIZE OUTPUT_VARIABLE idl)
  get_source_file_property(generated "${idl}" GENERATED)
  if(NOT generated AND (NOT EXISTS "${idl}" OR IS_DIRECTORY "${idl}"))
    message(FATAL_ERROR "idlgen_generate: file not found: ${file}. If the build generates it, give "
                        "its absolute path, and declare the command before or set GENERATED.")
  endif()
  _idlgen_check_path("${idl}")
  foreach(base IN LISTS bases)
    cmake_path(IS_PREFIX base "${idl}" NORMALIZE inside)
    if(inside)
      cmake_path(RELATIVE_PATH idl BASE_DIRECTORY "${base}" OUTPUT_VARIABLE name)
      set(${base_variable} "${base}" PARENT_SCOPE)
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

# Returns what all commands of the calling idlgen_generate depend on.
function(_idlgen_get_dependencies variable)
  set(depends idlgen::idlgen-header ${_idlgen_DEPENDS})
  get_target_property(stamp idlgen::idlgen-header IDLGEN_STAMP)
  if(stamp)
    list(APPEND depends "${stamp}")
  endif()
  set(${variable} "${depends}" PARENT_SCOPE)
endfunction()

# Adds the command that generates one header.
function(_idlgen_add_command idl include name depends)
  # -w: the check has shown the warnings.
  set(options -w)
  # Ninja compiles nothing again if a command leaves the header as it is. make would repeat the
  # command in each build.
  if(CMAKE_GENERATOR MATCHES "^Ninja")
    list(APPEND options --if-changed)
  endif()
  add_custom_command(
    OUTPUT "${include}/${name}"
    COMMAND idlgen::idlgen-header ${options} "${idl}" "${include}/${name}"
    DEPENDS "${idl}" ${depends}
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
    # An empty directory may be in the place of another header.
    cmake_path(GET name PARENT_PATH directory)
    while(directory)
      string(REPLACE "*" "[*]" pattern "${include}/${directory}")
      file(GLOB left "${pattern}/*")
      if(left)
        break()
      endif()
      file(REMOVE_RECURSE "${include}/${directory}")
      cmake_path(GET directory PARENT_PATH directory)
    endwhile()
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

# Adds the target that checks the IDL files, together with those that they include, before their
# headers are generated.
function(_idlgen_add_check target idls search directory depends)
  # The checks of targets that link this one search its directories, and wait for what generates its
  # IDL files. They learn of both by a property that is empty for other targets.
  list(TRANSFORM search PREPEND "-I" OUTPUT_VARIABLE entries)
  set(generated "${target}_check_depends")
  add_custom_target("${generated}" DEPENDS ${idls} ${_idlgen_DEPENDS})
  list(APPEND entries "$<$<TARGET_EXISTS:${generated}>:${generated}>")
  list(TRANSFORM entries PREPEND "$<BUILD_INTERFACE:$<$<BOOL:$<TARGET_PROPERTY:IDLGEN_TARGET>>:")
  list(TRANSFORM entries APPEND ">>")
  set_target_properties("${target}" PROPERTIES
    IDLGEN_TARGET TRUE INTERFACE_LINK_DEPENDS "${entries}")
  set(linked "$<TARGET_PROPERTY:${target},INTERFACE_LINK_DEPENDS>")
  list(APPEND depends "$<FILTER:${linked},INCLUDE,^[^/]+_check_depends$>")

  # What a target links may depend on the configuration. A build checks for one of them: a stamp for
  # each would be made in every build.
  set(arguments "${directory}/check/arguments")
  get_property(multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  if(multi_config)
    set(arguments "${directory}/check/$<CONFIG>/arguments")
  endif()
  _idlgen_write_arguments("${target}" "${idls}" "${arguments}")
  set(stamp "${directory}/check/stamp")
  _idlgen_add_check_command("${target}" "${stamp}" "${arguments}" "${idls}" "${depends}")
  add_custom_target("${target}_check" DEPENDS "${stamp}")
  add_dependencies("${target}_generate" "${target}_check")
endfunction()

# Writes the arguments of the check: the directories of the target and of those that it links, in
# which there are IDL files, then its include directories, in which there are other headers.
function(_idlgen_write_arguments target idls file)
  set(options "$<TARGET_PROPERTY:${target},INTERFACE_LINK_DEPENDS>")
  set(options "$<REMOVE_DUPLICATES:$<FILTER:${options},INCLUDE,^-I>>")
  # What the check finds must not depend on which headers the build has generated already.
  set(include "$<TARGET_PROPERTY:${target},INTERFACE_INCLUDE_DIRECTORIES>")
  set(include "$<REMOVE_DUPLICATES:$<FILTER:${include},EXCLUDE,[.]idlgen/include$>>")
  set(include "$<$<BOOL:${include}>:-I$<JOIN:${include},\n-I>\n>")
  list(JOIN idls "\n" lines)
  # Include directories may depend on the language of a source file: C++, if the project has it.
  set(condition "")
  get_property(languages GLOBAL PROPERTY ENABLED_LANGUAGES)
  if("CXX" IN_LIST languages)
    set(languages CXX)
  endif()
  if(NOT "${languages}" MATCHES "^(NONE)?$")
    list(GET languages 0 language)
    set(condition CONDITION "$<COMPILE_LANGUAGE:${language}>")
  endif()
  file(GENERATE OUTPUT "${file}" CONTENT "$<JOIN:${options},\n>\n${include}${lines}\n" ${condition})
endfunction()

# Adds the command that checks the IDL files with the arguments in a file.
function(_idlgen_add_check_command target stamp arguments idls depends)
  if(CMAKE_GENERATOR MATCHES "^Ninja" AND stamp MATCHES "\\$")
    message(FATAL_ERROR "idlgen: CMake does not support \"$\" in a build directory: ${stamp}")
  endif()
  set(werror "")
  if(_idlgen_WERROR)
    set(werror --werror)
  endif()
  # CMake keeps what a depfile once named for make, which then repeats a command for ever if such a
  # file is gone. Without its list CMake reads the depfile alone.
  set(forget "")
  if(CMAKE_GENERATOR MATCHES "Makefiles")
    set(list "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}_check.dir/compiler_depend.internal")
    set(forget COMMAND "${CMAKE_COMMAND}" -E rm -f "${list}")
  endif()
  # If CMake names this line and $<LINK_LANGUAGE>: that stands in INTERFACE_LINK_DEPENDS of a library
  # that the target links, and CMake knows the language only where something is linked.
  add_custom_command(
    OUTPUT "${stamp}"
    COMMAND idlgen::idlgen-header --check ${werror}
            --stamp "${stamp}" --depfile "${stamp}.d" "@${arguments}"
    ${forget}
    DEPENDS ${idls} "${arguments}" ${depends}
    DEPFILE "${stamp}.d"
    COMMENT "Checking the IDL files of ${target}"
    VERBATIM)
endfunction()
