# Settings of cpack, which creates an archive and a Debian package.
set(CPACK_PACKAGE_CONTACT "The idlgen maintainers <idlgen@zentho.example>")
set(CPACK_PACKAGE_VENDOR "zentho")
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
set(CPACK_PACKAGE_DESCRIPTION
"idlgen generates C++ headers from interface-definition files, which declare
enums, messages and services. The headers contain the types and the functions
that serialize their values to the framework's buffers and deserialize them.
The package includes idlgen-header, the build step for make, Meson and others,
and a CMake package.")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/postinst)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
# Finds the libraries that the programs need, with the tools file and dpkg-shlibdeps.
if(NOT idlgen_is_static)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
endif()

# cpack knows the architecture of the build machine only, and dpkg-shlibdeps its libraries only.
if(CMAKE_CROSSCOMPILING AND NOT CPACK_DEBIAN_PACKAGE_ARCHITECTURE)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^armv7")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64)$")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
  endif()
endif()
set(CPACK_GENERATOR TGZ)
if(NOT CMAKE_CROSSCOMPILING OR (CPACK_DEBIAN_PACKAGE_ARCHITECTURE AND idlgen_is_static))
  list(APPEND CPACK_GENERATOR DEB)
endif()
include(CPack)
