# Which program the package runs, and what happens if the program changes or fails.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start(program)
# The package is moved first: it must not depend on where it was installed.
file(COPY ${PREFIX}/ DESTINATION ${place}/moved)
set(PREFIX ${place}/moved)
set(ENV{IDLGEN} false)  # Must have no effect.
configure_consumer()
step(SUCCEEDS COMMAND ${make})

# A program with other contents regenerates all headers, even if it is older.
file(TOUCH ${PREFIX}/bin/idlgen)
step(SUCCEEDS COMMAND ${make} HIDES "Generating")
file(APPEND ${PREFIX}/bin/idlgen "changed")
step(SUCCEEDS COMMAND touch -d 2001-01-01 ${PREFIX}/bin/idlgen)
step(SUCCEEDS COMMAND ${make} PRINTS "Generating robot.nav.h" "Generating common/geometry.h"
                                     "Generating make/made.h")
step(SUCCEEDS COMMAND ${make} HIDES "Generating")

# IDLGEN_EXECUTABLE, relative to the source directory.
set(fake ${PREFIX}/bin/fake)
file(WRITE ${fake} "#!/bin/sh\necho half > \"\$2\"\n")
file(CHMOD ${fake} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
step(SUCCEEDS COMMAND ${configure} -D IDLGEN_EXECUTABLE:FILEPATH=../moved/bin/fake)
step(FAILS COMMAND ${make} PRINTS "the output of ${fake} is incomplete")
step(FAILS COMMAND ${configure} -D IDLGEN_EXECUTABLE=${place}/none
           PRINTS "IDLGEN_EXECUTABLE does not exist or is a directory: ${place}/none")

# A cross build uses a program of the build machine, whatever variables the user has set.
forget_configuration()
set(cross ${configure} -D CMAKE_SYSTEM_NAME=Linux -D program=${fake})
step(FAILS COMMAND ${cross} PRINTS "there is no idlgen for the build machine in its PATH")
set(ENV{PATH} "${PREFIX}/bin:$ENV{PATH}")
step(SUCCEEDS COMMAND ${cross})
step(SUCCEEDS COMMAND ${make})

forget_configuration()
file(REMOVE ${PREFIX}/bin/idlgen)
step(FAILS COMMAND ${configure} PRINTS "The program is missing from its package")
