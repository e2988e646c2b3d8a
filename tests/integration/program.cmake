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

# IDLGEN_HEADER_EXECUTABLE. CMake would wait for the contents of a pipe.
file(MAKE_DIRECTORY ${scratch}/tools)
file(COPY_FILE ${program} ${scratch}/tools/mine)
run(SUCCEEDS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE=${scratch}/tools/mine)
run(SUCCEEDS COMMAND ${build_all} --verbose PRINTS "/tools/mine")
run(SUCCEEDS COMMAND mkfifo -m 755 ${scratch}/pipe)
foreach(other tools/mine ${scratch}/none ${scratch}/tools ${scratch}/a.idl ${scratch}/pipe)
  run(FAILS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE:FILEPATH=${other}
            PRINTS "IDLGEN_HEADER_EXECUTABLE is not the absolute path of a program: ${other}")
endforeach()
find_program(true true)  # In place of an earlier version.
run(FAILS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE=${true}
          PRINTS "The program has no option --check. It may be of an earlier version: ${true}")

# It is not ignored silently if it is set too late.
run(SUCCEEDS COMMAND ${configure} -D IDLGEN_HEADER_EXECUTABLE=
                     -D "CALL=set(IDLGEN_HEADER_EXECUTABLE /late)\nidlgen_generate(TARGET a FILES a.idl)"
             PRINTS "This build generates headers with ${program}. It ignores /late")

# A second package: the same one through a link, and one with another program.
list(APPEND configure -D IDLGEN_HEADER_EXECUTABLE=)
file(CREATE_LINK ${PREFIX} ${scratch}/link SYMBOLIC)
set(second "set(idlgen_DIR [[${scratch}/link/share/cmake/idlgen]])\nfind_package(idlgen)")
run(SUCCEEDS COMMAND ${configure} -D "CALL=${second}" HIDES "It ignores")
set(second "set(idlgen_DIR [[${other_package}]])\nfind_package(idlgen)")
run(SUCCEEDS COMMAND ${configure} -D "CALL=${second}"
             PRINTS "This build generates headers with ${program}. It ignores" HIDES "has found first")
string(PREPEND second "set_property(GLOBAL PROPERTY IDLGEN_VERSION 1.1.0)\n")
run(SUCCEEDS COMMAND ${configure} -D "CALL=${second}"
             PRINTS "This build uses the idlgen_generate that it has found first")

# A cross build uses a program of the build machine, and keeps it.
file(REMOVE_RECURSE ${build})
set(cross ${configure} -D CMAKE_SYSTEM_NAME=Linux)
run(FAILS COMMAND ${cross} PRINTS "there is no idlgen-header for the build machine in its PATH")
set(path "$ENV{PATH}")
set(ENV{PATH} "${PREFIX}/bin:${path}")
run(SUCCEEDS COMMAND ${cross})
set(ENV{PATH} "${path}")
run(SUCCEEDS COMMAND ${CMAKE_COMMAND} ${build})
run(SUCCEEDS COMMAND ${build_all})

file(REMOVE ${program})
file(REMOVE_RECURSE ${build})
run(FAILS COMMAND ${configure} PRINTS "The program of the package is missing or not executable: ${program}")
