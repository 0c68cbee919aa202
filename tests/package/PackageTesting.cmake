# What the tests of the installed package share. See CMakeLists.txt for their variables.

separate_arguments(emulator UNIX_COMMAND "${EMULATOR}")
separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS}")
unset(ENV{DESTDIR})

# The compiler of the projects that a test configures, and of what it compiles itself.
set(sysroot_flags "")
if(TOOLCHAIN_FILE)
    # For the target's root, and for the environment that pkg-config needs to find its packages.
    include("${TOOLCHAIN_FILE}")
    if(CMAKE_SYSROOT)
        set(sysroot_flags "--sysroot=${CMAKE_SYSROOT}")
    endif()
    set(toolchain "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN_FILE}"
        "-DQUAVERA_SYSROOT=${QUAVERA_SYSROOT}")
else()
    set(toolchain "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}")
endif()
list(APPEND toolchain "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")

function(fail)
    message(SEND_ERROR ${ARGN})
endfunction()

# run(<what> <command>...): what the command prints in `output` and `errors`; a failure shows both.
function(run what)
    execute_process(COMMAND ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        fail("${what}: ${status}\n${output}\n${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
    set(errors "${errors}" PARENT_SCOPE)
endfunction()

# configure(<source> <build> <argument>...): what CMake says in `output`, warnings in `errors`.
function(configure source build)
    run("configure ${source}" "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}"
        ${toolchain} ${ARGN})
    set(output "${output}" PARENT_SCOPE)
    set(errors "${errors}" PARENT_SCOPE)
endfunction()

function(build folder)
    run("build in ${folder}" "${CMAKE_COMMAND}" --build "${folder}" --parallel 2 ${ARGN})
endfunction()

# configure_fails(<what it says> <source> <build> <argument>...): text and message in any layout.
function(configure_fails message source build)
    execute_process(COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}"
            ${toolchain} ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    string(REGEX REPLACE "[ \n]+" " " text "${output}")
    string(FIND "${text}" "${message}" position)
    if(status EQUAL 0 OR position EQUAL -1)
        fail("not refused with \"${message}\": ${ARGN}\n${status}\n${output}")
    endif()
endfunction()

# install_build_tree(<prefix> <argument>...): installs what is under test, and leaves the build
# tree's account of installations as a user needs it to undo one.
function(install_build_tree prefix)
    file(GLOB manifests "${BUILD_DIR}/install_manifest*.txt")
    set(kept "${WORK_DIR}/manifests")
    file(REMOVE_RECURSE "${kept}")
    file(COPY ${manifests} DESTINATION "${kept}")
    run("install" "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}" ${ARGN})
    file(GLOB manifests "${BUILD_DIR}/install_manifest*.txt")
    file(REMOVE ${manifests})
    file(GLOB manifests "${kept}/*")
    file(COPY ${manifests} DESTINATION "${BUILD_DIR}")
endfunction()

# find_package_in(<variable> <prefix>): the argument that makes a project find the package there.
function(find_package_in variable prefix)
    set(${variable} "-DCMAKE_PREFIX_PATH=${prefix}" PARENT_SCOPE)
    if(TOOLCHAIN_FILE)
        # Its root path hides the prefix from the search.
        set(${variable} "-DQuavera_DIR=${prefix}/${LIBDIR}/cmake/Quavera" PARENT_SCOPE)
    endif()
endfunction()

# names_none_of(<text>... FILES <file>...): none of these texts stands in the files.
function(names_none_of)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "FILES")
    foreach(file IN LISTS arg_FILES)
        file(READ "${file}" contents)
        foreach(folder IN LISTS arg_UNPARSED_ARGUMENTS)
            string(FIND "${contents}" "${folder}" position)
            if(NOT position EQUAL -1)
                fail("${file} names ${folder}")
            endif()
        endforeach()
    endforeach()
endfunction()

# compile_with_pkg_config(<variable> <prefix> "<package> ..." <source> <program> <option>...)
#
# Links the program with these packages of the prefix and nothing else; the options are pkg-config's.
# The variable is false where there is no pkg-config.
function(compile_with_pkg_config variable prefix packages source program)
    find_program(pkg_config pkg-config)
    if(NOT pkg_config)
        message(STATUS "pkg-config is not there: its file is not tried")
        set(${variable} FALSE PARENT_SCOPE)
        return()
    endif()
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    # The toolchain's library directory is one of a root, which the compiler knows; the prefix is
    # outside of it.
    set(root "$ENV{PKG_CONFIG_SYSROOT_DIR}")
    unset(ENV{PKG_CONFIG_SYSROOT_DIR})
    separate_arguments(packages)
    if(LIBRARY_TYPE STREQUAL STATIC)
        list(PREPEND packages --static)
    endif()
    run("pkg-config ${packages}" "${pkg_config}" ${ARGN} --cflags --libs ${packages})
    separate_arguments(quavera UNIX_COMMAND "${output}")
    set(ENV{PKG_CONFIG_SYSROOT_DIR} "${root}")
    run("compile with pkg-config ${packages}" "${CXX_COMPILER}" -std=c++17 ${sysroot_flags} ${flags}
        "${source}" -o "${program}" ${quavera} "-Wl,-rpath,${prefix}/${LIBDIR}")
    set(${variable} TRUE PARENT_SCOPE)
endfunction()
