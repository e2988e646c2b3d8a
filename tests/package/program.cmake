# Which program the package runs, and what it makes of one that does not do its work.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start(program)
# Only a copy that has been moved: nothing may remember where it was installed.
file(COPY ${PREFIX}/ DESTINATION ${place}/moved)
set(PREFIX ${place}/moved)
configure_consumer()
step(SUCCEEDS COMMAND ${make})

# Another program makes all headers anew.
file(TOUCH ${PREFIX}/bin/idlgen)
step(SUCCEEDS COMMAND ${make} PRINTS "Generating robot.nav.h" "Generating common/geometry.h"
                                     "Generating made.h")

# A status of 0 is not enough, and half a header is none.
set(fake ${place}/fake)
file(WRITE ${fake} "#!/bin/sh\nexit 0\n")
file(CHMOD ${fake} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
step(SUCCEEDS COMMAND ${configure} -D IDLGEN_EXECUTABLE=${fake})
step(FAILS COMMAND ${make} PRINTS "the program wrote no whole header")
file(WRITE ${fake} "#!/bin/sh\necho half > \"\${2%.*}.h\"\n")
step(FAILS COMMAND ${make} PRINTS "idlgen made no header of")
file(GLOB_RECURSE made ${headers}/*.idlgen/include/*.h)
foreach(header IN LISTS made)
  file(READ ${header} text)
  want("text MATCHES \"namespace zentho\"")
endforeach()
step(FAILS COMMAND ${configure} -D IDLGEN_EXECUTABLE=${place}/none
           PRINTS "IDLGEN_EXECUTABLE names no program: ${place}/none")

# A cross build takes a program of the build machine, whatever variables the user has.
forget_configuration()
set(cross ${configure} -D CMAKE_SYSTEM_NAME=Linux -D program=${fake})
step(FAILS COMMAND ${cross} PRINTS "there is no idlgen for the build machine in its PATH")
set(ENV{PATH} "${PREFIX}/bin:$ENV{PATH}")
step(SUCCEEDS COMMAND ${cross})
step(SUCCEEDS COMMAND ${make})

forget_configuration()
file(REMOVE ${PREFIX}/bin/idlgen)
step(FAILS COMMAND ${configure} PRINTS "The program is missing from its package")
