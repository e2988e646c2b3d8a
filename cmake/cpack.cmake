# Settings of cpack, which creates a Debian package and an archive.
set(CPACK_GENERATOR DEB TGZ)
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
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
