# Installs the build tree and builds the examples against what is there, with CMake and by the lines
# of their README for pkg-config; runs both, and what that page shows. See CMakeLists.txt for the
# variables, and examples/check.py for what they have to print.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(prefix "${WORK_DIR}/installed")
set(page "${SOURCE_DIR}/examples/README.md")
set(tool "")
set(session "")
if(WITH_TOOL)
    set(tool --tool "${prefix}/${BINDIR}/quavera")
    if(NOT TOOLCHAIN_FILE)
        set(session --session "${WORK_DIR}/session")  # what a page shows is for this machine
    endif()
endif()

# check_programs(<folder> <argument>...): what these print.
function(check_programs folder)
    run("programs ${folder}" python3 "${SOURCE_DIR}/tests/package/examples/check.py"
        --programs "${folder}" --sources "${SOURCE_DIR}" "--emulator=${EMULATOR}" ${tool} ${ARGN})
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${prefix}")
file(MAKE_DIRECTORY "${WORK_DIR}/session")

# --- with CMake: all of them from a folder that nothing is written to, and each by itself

file(COPY "${SOURCE_DIR}/examples" DESTINATION "${WORK_DIR}")
set(examples "${WORK_DIR}/examples")
set(programs "${WORK_DIR}/with-cmake")
file(GLOB_RECURSE sources LIST_DIRECTORIES TRUE "${examples}/*")
find_package_in(where "${prefix}")
configure("${examples}" "${WORK_DIR}/build" ${where}
    "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${programs}")
build("${WORK_DIR}/build")
check_programs("${programs}" ${session})

foreach(name IN ITEMS log-reader platform soap-client tree-receiver)
    configure("${examples}/${name}" "${WORK_DIR}/alone/${name}" ${where})
endforeach()
file(GLOB_RECURSE left LIST_DIRECTORIES TRUE "${examples}/*")
if(NOT left STREQUAL sources)
    fail("something is written into the folder of the sources: ${left}")
endif()

# --- with pkg-config, by the page's lines

find_program(pkg_config pkg-config)
if(pkg_config)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    unset(ENV{PKG_CONFIG_SYSROOT_DIR})  # the compiler knows the root, and the prefix is outside of it
    if(LIBRARY_TYPE STREQUAL STATIC)
        string(APPEND pkg_config " --static")
    endif()
    set(folder "${WORK_DIR}/with-pkg-config")
    file(MAKE_DIRECTORY "${folder}")
    file(CREATE_LINK "${examples}" "${folder}/examples" SYMBOLIC)
    file(STRINGS "${page}" lines REGEX "^c\\+\\+ .*pkg-config")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^c\\+\\+ " "${CXX_COMPILER} ${sysroot_flags} ${CXX_FLAGS} "
            command "${line}")
        string(REPLACE "$(pkg-config " "$(${pkg_config} " command "${command}")
        run("${line}" "${CMAKE_COMMAND}" -E chdir "${folder}" sh -c "${command}")
    endforeach()
    set(ENV{LD_LIBRARY_PATH} "${prefix}/${LIBDIR}")
    check_programs("${folder}")
    unset(ENV{LD_LIBRARY_PATH})
else()
    message(STATUS "pkg-config is not there: its lines are not tried")
endif()
