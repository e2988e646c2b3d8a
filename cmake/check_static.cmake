include(CheckCXXSourceCompiles)
include(CheckCXXSourceRuns)

# Sets the cache entry to whether a statically linked program runs. A cross build only links it. With
# some sanitizers a program can be linked statically, but crashes at its start.
function(check_static variable)
  # By default, the checks do not use the link options of the directory, such as those of a project
  # that includes this one, nor the flags of the build type.
  get_directory_property(link_options LINK_OPTIONS)
  set(CMAKE_REQUIRED_LINK_OPTIONS ${link_options} -static)
  set(CMAKE_TRY_COMPILE_CONFIGURATION "${CMAKE_BUILD_TYPE}")
  set(program "int main() { return 0; }")
  if(CMAKE_CROSSCOMPILING)
    check_cxx_source_compiles("${program}" ${variable})
  else()
    check_cxx_source_runs("${program}" ${variable})
  endif()
endfunction()
