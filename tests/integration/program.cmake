# Which program the package runs, and what happens if the program changes.
include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)
start("program with a blank")
# The package is moved first: it must not depend on where it was installed.
file(COPY ${PREFIX}/bin ${PREFIX}/share DESTINATION ${scratch}/moved)
set(other_package ${PREFIX}/share/cmake/idlgen)
set(PREFIX ${scratch}/moved)
set(program ${PREFIX}/bin/idlgen-header)
create_small_project()
list(APPEND configure -D "CALL=idlgen_generate(TARGET a FILES a.idl)")
run(SUCCEEDS COMMAND ${configure})
run(SUCCEEDS COMMAND ${build_all} PRINTS "Generating a.h")
run(SUCCEEDS COMMAND ${build_all} PRINTS "no work to do")

# A newer program regenerates the headers, and after configuring, so does one with other contents.
file(TOUCH ${program})
run(SUCCEEDS COMMAND ${build_all} PRINTS "Generating a.h")
run(SUCCEEDS COMMAND ${configure})
run(SUCCEEDS COMMAND ${build_all} PRINTS "no work to do")
file(APPEND ${program} "changed")
run(SUCCEEDS COMMAND touch -d 2001-01-01 ${program})
run(SUCCEEDS COMMAND ${configure})
run(SUCCEEDS COMMAND ${build_all} PRINTS "Generating a.h")
run(SUCCEEDS COMMAND ${build_all} PRINTS "no work to do")

# IDLGEN_HEADER_EXECUTABLE, relative to the source directory.
file(MAKE_DIRECTORY ${scratch}/tools)
file(COPY_FILE ${program} ${scratch}/tools/mine)
run(SUCCEEDS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE:FILEPATH=tools/mine)
run(SUCCEEDS COMMAND ${build_all} --verbose PRINTS "/tools/mine")
run(FAILS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE=${scratch}/none
          PRINTS "IDLGEN_HEADER_EXECUTABLE does not exist or is a directory: ${scratch}/none")

# A second package with another program.
run(SUCCEEDS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE=
             -D "CALL=set(idlgen_DIR [[${other_package}]])\nfind_package(idlgen)"
             PRINTS "This build generates headers with ${program}. It ignores")

# A cross build uses a program of the build machine.
set(cross ${configure} --fresh -D CMAKE_SYSTEM_NAME=Linux)
run(FAILS COMMAND ${cross} PRINTS "there is no idlgen-header for the build machine in its PATH")
set(ENV{PATH} "${PREFIX}/bin:$ENV{PATH}")
run(SUCCEEDS COMMAND ${cross})
run(SUCCEEDS COMMAND ${build_all})

file(REMOVE ${program})
run(FAILS COMMAND ${configure} --fresh PRINTS "The program is missing from its package: ${program}")
