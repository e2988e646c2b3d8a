# idlgen_import_program(<directory> <variable>)
#
# Creates the imported target idlgen::idlgen for an existing program:
#   - the one that IDLGEN_EXECUTABLE names, if set,
#   - otherwise, in a cross build, one from the PATH of the build machine,
#   - otherwise, the one in the directory.
# Uses the idlgen-header next to the program if the program is named idlgen, otherwise the one in the
# directory.
# Sets the variable to an error message if the program does not exist, otherwise to an empty string.
cmake_minimum_required(VERSION 3.23)

function(idlgen_import_program directory problem_variable)
  set(IDLGEN_EXECUTABLE "" CACHE FILEPATH "The idlgen to run, if not the one of the package")
  if(IDLGEN_EXECUTABLE)
    cmake_path(ABSOLUTE_PATH IDLGEN_EXECUTABLE BASE_DIRECTORY ${CMAKE_SOURCE_DIR} NORMALIZE
               OUTPUT_VARIABLE program)
    set(problem "IDLGEN_EXECUTABLE does not exist or is a directory: ${program}")
  elseif(CMAKE_CROSSCOMPILING)
    set(program NOTFOUND)  # find_program does not search if the user has set this variable.
    find_program(program idlgen PATHS ENV PATH NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    set(problem "This is a cross build, and there is no idlgen for the build machine in its PATH. \
Install one there or set IDLGEN_EXECUTABLE to it.")
  else()
    set(program ${directory}/idlgen)
    set(problem "The program is missing from its package: ${program}")
  endif()

  if(EXISTS "${program}" AND NOT IS_DIRECTORY "${program}")
    set(problem "")
    if(NOT TARGET idlgen::idlgen)
      _idlgen_create_target(${program} ${directory})
    endif()
  endif()
  set(${problem_variable} ${problem} PARENT_SCOPE)
endfunction()

function(_idlgen_create_target program directory)
  add_executable(idlgen::idlgen IMPORTED GLOBAL)
  set_target_properties(idlgen::idlgen PROPERTIES IMPORTED_LOCATION ${program})

  # "IDLGEN=" makes the shell clear this environment variable, which the user may have set. Using env
  # as below would take longer.
  cmake_path(REPLACE_FILENAME program idlgen-header OUTPUT_VARIABLE script)
  if(program MATCHES "/idlgen$" AND EXISTS ${script})
    set_property(GLOBAL PROPERTY IDLGEN_COMMAND IDLGEN= ${script})
  else()
    set_property(GLOBAL PROPERTY IDLGEN_COMMAND env IDLGEN=${program} ${directory}/idlgen-header)
  endif()

  # A new program may have an older timestamp than the headers. So they depend on a copy, which each
  # build updates if the contents of the program have changed.
  set(copy ${CMAKE_BINARY_DIR}/CMakeFiles/idlgen.copy)
  add_custom_target(idlgen_program
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${program} ${copy}
    BYPRODUCTS ${copy}
    COMMENT "Checking whether idlgen has changed"
    VERBATIM)
  set_property(GLOBAL PROPERTY IDLGEN_DEPENDENCIES ${copy} idlgen_program)
endfunction()
