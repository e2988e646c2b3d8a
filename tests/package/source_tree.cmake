# idlgen as a part of the user's own tree.
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
want("EXISTS \"${place}/installed/include/common/geometry.h\"")
want("NOT EXISTS \"${place}/installed/bin\"")

# A program that is relative to the source directory, and a build below that.
file(COPY ${PREFIX}/bin/idlgen DESTINATION ${source}/tools)
step(SUCCEEDS COMMAND ${configure} -B ${source}/build -D IDLGEN_SOURCE_DIR=${IDLGEN_SOURCE_DIR}
                      -D IDLGEN_EXECUTABLE:FILEPATH=tools/idlgen)
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --build ${source}/build --target app)
