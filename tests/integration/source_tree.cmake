# idlgen in a project that includes it with add_subdirectory, has several configurations, and links
# idlgen with the framework's library. A library that prints a message stands in for it.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("source tree")
file(WRITE ${scratch}/zentho.cpp "#include <cstdio>
namespace zentho::util {
class FilePath { public: static void createFile(const char* path); };
void FilePath::createFile(const char* path) { std::printf(\"creating %s\\n\", path); }
}  // namespace zentho::util
")
run(SUCCEEDS COMMAND c++ -std=c++17 -shared -fPIC -o ${scratch}/libzentho.so ${scratch}/zentho.cpp)

set(BUILD "Ninja Multi-Config")
configure_project(consumer -D IDLGEN_SOURCE_DIR=${IDLGEN_SOURCE_DIR} -D IDLGEN_USE_LIBZENTHO=ON
                   -D CMAKE_LIBRARY_PATH=${scratch} -D CMAKE_UNITY_BUILD=ON
                   -D CMAKE_CXX_FLAGS_RELEASE=-O0 -D CMAKE_CXX_FLAGS_DEBUG=-O0)

# The configurations share the headers. Changing between them compiles nothing again.
foreach(config Release Debug)
  run(SUCCEEDS COMMAND ${build_all} --config ${config} --target app)
  run(SUCCEEDS COMMAND ${build}/app/${config}/app)
endforeach()
foreach(config Release Debug)
  run(SUCCEEDS COMMAND ${build_all} --config ${config} --target app HIDES "Building")
endforeach()
run(SUCCEEDS COMMAND ${build_all} --config Debug)
file(WRITE ${scratch}/a.idl "")
run(SUCCEEDS COMMAND ${build}/idlgen/idlgen/Debug/idlgen -f ${scratch}/a.idl
             PRINTS "creating ${scratch}/a.h")

# Only the project's own files are installed.
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${scratch}/installed)
check("EXISTS \"${scratch}/installed/include/common/geometry.h\"")
check("NOT EXISTS \"${scratch}/installed/bin\"")

# With IDLGEN_INSTALL, the project's package also has idlgen, and is still the project's. It can be
# installed.
run(SUCCEEDS COMMAND ${configure} -D IDLGEN_INSTALL=ON HIDES "Warning")
run(SUCCEEDS COMMAND ${build_all} --config Debug --target package)
find_program(dpkg dpkg)
if(dpkg)
  file(GLOB package ${build}/*.deb)
  run(SUCCEEDS COMMAND dpkg --field ${package} PRINTS "Package: consumer" "<consumer@zentho.example>"
                       HIDES "The idlgen maintainers")
  run(SUCCEEDS COMMAND dpkg --contents ${package}
               PRINTS "./usr/bin/idlgen-header" "./usr/include/common/geometry.h")
  set(root ${scratch}/root)
  file(WRITE ${root}/var/lib/dpkg/status "")
  file(MAKE_DIRECTORY ${root}/var/lib/dpkg/info ${root}/var/lib/dpkg/updates)
  run(SUCCEEDS COMMAND dpkg --root=${root} --log=/dev/null --force-not-root --force-depends
                       --force-script-chrootless --install ${package})
endif()

# The Debian package of a cross build has the architecture of the target.
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G Ninja -S ${IDLGEN_SOURCE_DIR} -B ${scratch}/cross
                     -D CMAKE_SYSTEM_NAME=Linux -D CMAKE_SYSTEM_PROCESSOR=aarch64
                     -D BUILD_TESTING=OFF)
check_contains(${scratch}/cross/CPackConfig.cmake "CPACK_DEBIAN_PACKAGE_ARCHITECTURE \"arm64\"")
