# idlgen with the framework's library. A library that prints a message stands in for it.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("framework library")
file(WRITE ${place}/library/CMakeLists.txt "
cmake_minimum_required(VERSION 3.23)
project(library LANGUAGES CXX)
add_library(zentho SHARED zentho.cpp)
")
file(WRITE ${place}/library/zentho.cpp "#include <cstdio>
namespace zentho::util {
struct FilePath { static int createFile(const char* path); };
int FilePath::createFile(const char* path) { return std::printf(\"creating %s\\n\", path); }
}  // namespace zentho::util
")
set(library ${place}/library/build)
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${place}/library -B ${library})
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --build ${library})

set(configure ${CMAKE_COMMAND} -G ${GENERATOR} -S ${IDLGEN_SOURCE_DIR} -B ${place}/build
              -D BUILD_TESTING=OFF -D IDLGEN_USE_LIBZENTHO=ON)
step(FAILS COMMAND ${configure} PRINTS "Could not find IDLGEN_LIBZENTHO")
step(SUCCEEDS COMMAND ${configure} -D CMAKE_LIBRARY_PATH=${library})
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --build ${place}/build)
file(WRITE ${place}/a.idl "")
step(SUCCEEDS COMMAND ${place}/build/idlgen/idlgen -f ${place}/a.idl
              PRINTS "creating ${place}/a.h")
check("EXISTS \"${place}/a.h\"")
