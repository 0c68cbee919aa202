# Installs the build tree, moves the prefix elsewhere, and then uses what is there: the tool, the
# CMake package, the pkg-config file, and each header by itself. See CMakeLists.txt for the
# variables.

cmake_minimum_required(VERSION 3.25)

separate_arguments(emulator UNIX_COMMAND "${EMULATOR}")
separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS}")
set(prefix "${WORK_DIR}/moved/to here")
set(include_dir "${prefix}/${INCLUDEDIR}/quavera")
unset(ENV{DESTDIR})

function(fail)
    message(SEND_ERROR ${ARGN})
endfunction()

# run(<what> <command>...): the command's output in `output`; a failure shows it.
macro(run what)
    execute_process(COMMAND ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        fail("${what}: ${status}\n${output}\n${errors}")
    endif()
endmacro()

# --- install and move

file(REMOVE_RECURSE "${WORK_DIR}")
run("install" "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/installed")
file(MAKE_DIRECTORY "${WORK_DIR}/moved")
file(RENAME "${WORK_DIR}/installed" "${prefix}")

foreach(path IN ITEMS
        "${BINDIR}/quavera" "${LIBDIR}/libquavera.so" "${LIBDIR}/libquavera-soap.so"
        "${LIBDIR}/libzqshared.so" "${LIBDIR}/cmake/Quavera/QuaveraConfig.cmake"
        "${LIBDIR}/pkgconfig/quavera.pc" "${INCLUDEDIR}/quavera/common/QuaveraCommon.h"
        "${INCLUDEDIR}/quavera/platform/zqshared.h" "${INCLUDEDIR}/quavera/records/QuavData.h"
        "${INCLUDEDIR}/quavera/soap/QuaveraStub.h" "${INCLUDEDIR}/quavera/soap/QuaveraH.h")
    if(NOT EXISTS "${prefix}/${path}")
        fail("not installed: ${path}")
    endif()
endforeach()

# --- the tool

run("installed tool" ${emulator} "${prefix}/${BINDIR}/quavera" demo)
if(NOT output MATCHES " = ")
    fail("the installed tool's demonstration prints no record:\n${output}")
endif()

# --- no path of this machine

file(GLOB_RECURSE texts LIST_DIRECTORIES FALSE
    "${prefix}/*.h" "${prefix}/*.cmake" "${prefix}/*.pc" "${prefix}/share/*")
foreach(text IN LISTS texts)
    file(READ "${text}" contents)
    foreach(folder IN ITEMS "${SOURCE_DIR}" "${BUILD_DIR}" "${WORK_DIR}")
        string(FIND "${contents}" "${folder}" position)
        if(NOT position EQUAL -1)
            fail("${text} names ${folder}")
        endif()
    endforeach()
endforeach()

# --- a project that uses the CMake package

if(TOOLCHAIN_FILE)
    # Its root path hides the prefix from the search.
    set(where "-DQuavera_DIR=${prefix}/${LIBDIR}/cmake/Quavera"
        "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN_FILE}")
else()
    set(where "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}")
endif()
set(consumer_build "${WORK_DIR}/consumer")
run("configure the consumer" "${CMAKE_COMMAND}" -S "${CONSUMER_DIR}" -B "${consumer_build}"
    -G "${GENERATOR}" ${where} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run("build the consumer" "${CMAKE_COMMAND}" --build "${consumer_build}" --parallel 2)
foreach(program IN ITEMS consumer consumer-hidden conversion context context-as-needed)
    run("run ${program}" ${emulator} "${consumer_build}/${program}")
endforeach()

# --- a program that uses pkg-config

find_program(pkg_config pkg-config)
if(pkg_config)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    # The toolchain's library directory is one of a root; the prefix is outside of it.
    set(sysroot "$ENV{PKG_CONFIG_SYSROOT_DIR}")
    unset(ENV{PKG_CONFIG_SYSROOT_DIR})
    run("pkg-config quavera" "${pkg_config}" --cflags --libs quavera)
    separate_arguments(quavera UNIX_COMMAND "${output}")
    set(ENV{PKG_CONFIG_SYSROOT_DIR} "${sysroot}")
    run("pkg-config gsoap++" "${pkg_config}" --cflags --libs gsoap++)
    separate_arguments(gsoap UNIX_COMMAND "${output}")
    run("compile with pkg-config" "${CXX_COMPILER}" -std=c++17 ${flags}
        "${CONSUMER_DIR}/main.cpp" -o "${WORK_DIR}/with-pkg-config"
        ${quavera} -lquavera-soap ${gsoap} "-Wl,-rpath,${prefix}/${LIBDIR}")
    run("run with pkg-config" ${emulator} "${WORK_DIR}/with-pkg-config")
else()
    message(STATUS "pkg-config is not there: its file is not tried")
endif()

# --- each header by itself

set(compilers "${CXX_COMPILER}")
if(NOT TOOLCHAIN_FILE)
    foreach(name IN ITEMS g++ clang++)
        find_program(${name}_path ${name})
        if(${name}_path)
            list(APPEND compilers "${${name}_path}")
        endif()
    endforeach()
    list(TRANSFORM compilers REPLACE "^.*/c\\+\\+$" "${g++_path}")
    list(REMOVE_DUPLICATES compilers)
endif()

file(GLOB_RECURSE headers RELATIVE "${include_dir}" "${include_dir}/*.h")
list(LENGTH headers count)
if(count EQUAL 0)
    fail("no headers in ${include_dir}")
endif()
foreach(header IN LISTS headers)
    # Twice, for its include guard.
    set(source "${WORK_DIR}/header.cpp")
    file(WRITE "${source}" "#include \"${header}\"\n#include \"${header}\"\n")
    set(warnings -Wall -Wextra -Wpedantic -Werror)
    if(header MATCHES "^soap/(Quavera|env)(Stub|H)\\.h$")
        set(warnings -w)  # generated
    endif()
    foreach(compiler IN LISTS compilers)
        run("${header} with ${compiler}" "${compiler}" -std=c++17 -fsyntax-only ${warnings}
            "-I${include_dir}" "${source}")
    endforeach()
endforeach()
