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

# run(<what> <command>...): the command's output in `output`; a failure shows it.
function(run what)
    execute_process(COMMAND ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        fail("${what}: ${status}\n${output}\n${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# configure(<source> <build> <argument>...): what CMake says in `output`.
function(configure source build)
    run("configure ${source}" "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}"
        ${toolchain} ${ARGN})
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(build folder)
    run("build in ${folder}" "${CMAKE_COMMAND}" --build "${folder}" --parallel 2 ${ARGN})
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

# compile_with_pkg_config(<variable> <prefix> <source> <program> <pkg-config option>...)
#
# Links the program with the package in the prefix. The variable is false where there is no
# pkg-config.
function(compile_with_pkg_config variable prefix source program)
    find_program(pkg_config pkg-config)
    if(NOT pkg_config)
        message(STATUS "pkg-config is not there: its file is not tried")
        set(${variable} FALSE PARENT_SCOPE)
        return()
    endif()
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    # The toolchain's library directory is one of a root; the prefix is outside of it.
    set(root "$ENV{PKG_CONFIG_SYSROOT_DIR}")
    unset(ENV{PKG_CONFIG_SYSROOT_DIR})
    run("pkg-config quavera" "${pkg_config}" ${ARGN} --cflags --libs quavera)
    separate_arguments(quavera UNIX_COMMAND "${output}")
    set(ENV{PKG_CONFIG_SYSROOT_DIR} "${root}")
    run("pkg-config gsoap++" "${pkg_config}" --cflags --libs gsoap++)
    separate_arguments(gsoap UNIX_COMMAND "${output}")
    run("compile with pkg-config" "${CXX_COMPILER}" -std=c++17 ${sysroot_flags} ${flags}
        "${source}" -o "${program}"
        ${quavera} -lquavera-soap ${gsoap} "-Wl,-rpath,${prefix}/${LIBDIR}")
    set(${variable} TRUE PARENT_SCOPE)
endfunction()
