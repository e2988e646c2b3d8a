include(CheckCXXSourceCompiles)
include(CheckCXXSourceRuns)

# Sets the variable to a condition for generator expressions: whether statically linked programs run
# in the configuration. It is 1 or 0 if that holds for all configurations.
function(idlgen_check_static variable)
  get_property(multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  if(NOT multi_config)
    _idlgen_check_static("${CMAKE_BUILD_TYPE}" condition)
  else()
    set(static "")
    foreach(configuration IN LISTS CMAKE_CONFIGURATION_TYPES)
      _idlgen_check_static("${configuration}" works)
      if(works)
        list(APPEND static "${configuration}")
      endif()
    endforeach()
    set(condition 0)
    if(static STREQUAL CMAKE_CONFIGURATION_TYPES)
      set(condition 1)
    elseif(static)
      list(JOIN static "," static)
      set(condition "$<CONFIG:${static}>")
    endif()
  endif()
  set(${variable} "${condition}" PARENT_SCOPE)
endfunction()

# Sets the variable to 1 if a statically linked program runs, otherwise to 0. A cross build only links
# it. With some sanitizers a program can be linked statically, but crashes at its start.
function(_idlgen_check_static configuration variable)
  # By default, the checks do not use the link options and libraries of the directory, such as those
  # of a project that includes this one, nor the flags of the build type.
  string(TOUPPER "${configuration}" suffix)
  get_directory_property(link_options LINK_OPTIONS)
  get_directory_property(libraries LINK_LIBRARIES)
  list(APPEND CMAKE_REQUIRED_LIBRARIES ${libraries})
  separate_arguments(flags UNIX_COMMAND "${CMAKE_EXE_LINKER_FLAGS_${suffix}}")
  set(CMAKE_REQUIRED_LINK_OPTIONS ${link_options} ${flags} -static)
  set(CMAKE_TRY_COMPILE_CONFIGURATION "${configuration}")
  # The project of the check has only the usual configurations otherwise.
  list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CMAKE_CONFIGURATION_TYPES)

  # The cache keeps the result until the flags change.
  set(result IDLGEN_STATIC_WORKS_${suffix})
  set(flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${suffix}} ${CMAKE_EXE_LINKER_FLAGS} \
${CMAKE_REQUIRED_LINK_OPTIONS} ${libraries}")
  if(NOT flags STREQUAL "${${result}_FLAGS}")
    unset(${result} CACHE)
    set(${result}_FLAGS "${flags}" CACHE INTERNAL "The flags of ${result}")
  endif()
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
