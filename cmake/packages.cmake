# What cpack makes in a release build: a Debian package and an archive.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_CONTACT "The idlgen maintainers <idlgen@zentho.example>")
set(CPACK_PACKAGE_VENDOR "zentho")
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
set(CPACK_PACKAGE_DESCRIPTION
"idlgen reads interface-definition files (includes, namespaces, enums, messages
and services) and writes a C++ header for each of them, with the functions that
bring values of the declared types into the framework's buffers and back.
It comes with a CMake package that runs it in a build.")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
