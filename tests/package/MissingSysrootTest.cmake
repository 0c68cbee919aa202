# Whoever builds for the target without its root folder is told how to make one. See CMakeLists.txt
# for the variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
set(toolchain "-DCMAKE_TOOLCHAIN_FILE=${SOURCE_DIR}/cmake/armhf/toolchain.cmake")
foreach(message IN ITEMS
        "There is no root folder of the target in ${WORK_DIR}/none."
        "cmake/armhf/sysroot build/armhf-sysroot"
        "./run target"
        "set QUAVERA_SYSROOT to its path")
    configure_fails("${message}" "${SOURCE_DIR}" "${WORK_DIR}/build"
        "-DQUAVERA_SYSROOT=${WORK_DIR}/none")
endforeach()
