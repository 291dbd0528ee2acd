# SPDX-License-Identifier: MIT
#
# Installs the package into a staging folder, moves that elsewhere, and builds and runs the
# stranger's programs against it.
#
#     cmake -DBUILD=… -DSTRANGER=… -DDOCUMENT=… -DSONG=… -DSTAGE=… -DBUILD_TYPE=… -DFLAGS=…
#         -DCOMPONENTS=… -P package.cmake
#
# DOCUMENT: where the hosts stand that a stranger copies. SONG: what they open a copy of.
# FLAGS: what the sanitizers of this build ask of everyone who links its static libraries.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${STAGE})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${STAGE}/first)
# A package that still points at the folder it was installed into breaks here.
file(RENAME ${STAGE}/first "${STAGE}/moved there")
run(${CMAKE_COMMAND} -S ${STRANGER} -B ${STAGE}/build -G Ninja
    "-DCMAKE_PREFIX_PATH=${STAGE}/moved there"
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    "-DCMAKE_CXX_FLAGS=${FLAGS}"
    -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON
    "-DSTRANGER_DOCUMENT=${DOCUMENT}"
    "-DSTRANGER_SONG=${SONG}"
    "-DSTRANGER_COMPONENTS=${COMPONENTS}")
run(${CMAKE_COMMAND} --build ${STAGE}/build)
run(${CMAKE_CTEST_COMMAND} --test-dir ${STAGE}/build --output-on-failure --no-tests=error)
file(REMOVE_RECURSE ${STAGE})
