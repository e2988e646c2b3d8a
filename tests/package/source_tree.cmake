# idlgen as a part of the user's own tree.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("source tree")
configure_consumer(-D IDLGEN_SOURCE_DIR=${IDLGEN_SOURCE_DIR}
                   -D CONSUMER_FLAGS=-fsanitize=undefined,address)
step(SUCCEEDS COMMAND ${make})
step(SUCCEEDS COMMAND ${build}/app/app)
step(SUCCEEDS COMMAND ${make} HIDES "Generating")
step(SUCCEEDS COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${place}/installed)
want("NOT EXISTS \"${place}/installed/bin/idlgen\"")
