# The imported target idlgen::idlgen for a program that is there already: the one that
# IDLGEN_EXECUTABLE names; else, in a cross build, which cannot run what it builds, one from the
# PATH of the build machine; else the one at the path given. Sets the variable to what is wrong if
# there is no such program, and to nothing otherwise.
cmake_minimum_required(VERSION 3.23)

function(idlgen_import_program own_path problem_variable)
  if(IDLGEN_EXECUTABLE)
    cmake_path(ABSOLUTE_PATH IDLGEN_EXECUTABLE OUTPUT_VARIABLE program)
    set(problem "IDLGEN_EXECUTABLE names no program: ${program}")
  elseif(CMAKE_CROSSCOMPILING)
    set(program NOTFOUND)  # A variable of the caller's with this name would be taken for the result.
    find_program(program idlgen PATHS ENV PATH NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    set(problem "This is a cross build, and there is no idlgen for the build machine in its PATH. \
Install one there or set IDLGEN_EXECUTABLE to it.")
  else()
    set(program ${own_path})
    set(problem "The program is missing from its package: ${program}")
  endif()

  if(EXISTS "${program}" AND NOT IS_DIRECTORY "${program}")
    set(problem "")
    if(NOT TARGET idlgen::idlgen)
      add_executable(idlgen::idlgen IMPORTED GLOBAL)
      set_target_properties(idlgen::idlgen PROPERTIES IMPORTED_LOCATION ${program})
    endif()
  endif()
  set(${problem_variable} ${problem} PARENT_SCOPE)
endfunction()
