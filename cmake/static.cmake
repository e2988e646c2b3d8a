include(CheckCXXSourceCompiles)
include(CheckCXXSourceRuns)

# Sets the variable to 1 if programs can be linked statically, otherwise to 0: if one that has the
# flags of all configurations can be linked so, and runs. With some sanitizers it crashes. A cross
# build only links it.
function(idlgen_check_static variable)
  # The check does not use these by itself.
  get_directory_property(options LINK_OPTIONS)
  get_directory_property(CMAKE_REQUIRED_LIBRARIES LINK_LIBRARIES)
  set(CMAKE_REQUIRED_FLAGS "")
  set(configurations "${CMAKE_CONFIGURATION_TYPES}")
  get_property(multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  if(NOT multi_config)
    set(configurations "${CMAKE_BUILD_TYPE}")
    set(CMAKE_TRY_COMPILE_CONFIGURATION "${CMAKE_BUILD_TYPE}")
  endif()
  foreach(configuration IN LISTS configurations)
    string(TOUPPER "${configuration}" suffix)
    string(APPEND CMAKE_REQUIRED_FLAGS " ${CMAKE_CXX_FLAGS_${suffix}}")
    separate_arguments(flags UNIX_COMMAND "${CMAKE_EXE_LINKER_FLAGS_${suffix}}")
    list(APPEND options ${flags})
  endforeach()
  set(CMAKE_REQUIRED_LINK_OPTIONS ${options} -static)

  # The cache keeps a result for each set of flags, under a name that says nothing.
  set(CMAKE_REQUIRED_QUIET ON)
  string(MD5 flags "${CMAKE_CXX_FLAGS} ${CMAKE_REQUIRED_FLAGS} ${CMAKE_EXE_LINKER_FLAGS} ${options} \
${CMAKE_REQUIRED_LIBRARIES}")
  set(result IDLGEN_STATIC_WORKS_${flags})
  set(program "int main() { return 0; }")
  if(CMAKE_CROSSCOMPILING)
    check_cxx_source_compiles("${program}" ${result})
  else()
    check_cxx_source_runs("${program}" ${result})
  endif()
  set(${variable} 0 PARENT_SCOPE)
  if(${result})
    set(${variable} 1 PARENT_SCOPE)
  endif()
endfunction()
