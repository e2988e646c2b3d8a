# A project that includes idlgen with add_subdirectory.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("source tree")
set(GENERATOR "Ninja Multi-Config")
configure_consumer(-D IDLGEN_SOURCE_DIR=${IDLGEN_SOURCE_DIR}
                   -D CONSUMER_FLAGS=-fsanitize=undefined,address)
foreach(config Release Debug)
  step(SUCCEEDS COMMAND ${make} --config ${config})
  step(SUCCEEDS COMMAND ${build}/app/${config}/app)
endforeach()
step(SUCCEEDS COMMAND ${make} --config Release HIDES "Generating")
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${place}/installed)
check("EXISTS \"${place}/installed/include/common/geometry.h\"")
check("NOT EXISTS \"${place}/installed/bin\"")

# IDLGEN_EXECUTABLE, relative to the source directory, and a build directory in the source tree.
file(COPY ${PREFIX}/bin/idlgen DESTINATION ${source}/tools)
step(SUCCEEDS COMMAND ${configure} -B ${source}/build -D IDLGEN_SOURCE_DIR=${IDLGEN_SOURCE_DIR}
                      -D IDLGEN_EXECUTABLE:FILEPATH=tools/idlgen)
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --build ${source}/build --target app)
