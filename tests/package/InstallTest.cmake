# Installs the build tree, moves the prefix elsewhere, and then uses what is there: the tool, the
# CMake package, the pkg-config file, and each header by itself. See CMakeLists.txt for the
# variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(prefix "${WORK_DIR}/moved/to here")
set(include_dir "${prefix}/${INCLUDEDIR}/quavera")

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
names_none_of("${SOURCE_DIR}" "${BUILD_DIR}" "${WORK_DIR}" FILES ${texts})

# --- no name in the headers that a user cannot use

file(GLOB_RECURSE headers "${prefix}/*.h")
names_none_of(
    ChildReader ChildWalk ElementWriter TextLines AddLines ListItem Arena "friend class"
    FILES ${headers})

# --- a project that uses the CMake package

find_package_in(where "${prefix}")
set(consumer_build "${WORK_DIR}/consumer")
configure("${CONSUMER_DIR}" "${consumer_build}" ${where})
build("${consumer_build}")
foreach(program IN ITEMS consumer consumer-hidden conversion context context-as-needed)
    run("run ${program}" ${emulator} "${consumer_build}/${program}")
endforeach()

# --- a program that uses pkg-config

compile_with_pkg_config(is_compiled "${prefix}" "${CONSUMER_DIR}/main.cpp"
    "${WORK_DIR}/with-pkg-config")
if(is_compiled)
    run("run with pkg-config" ${emulator} "${WORK_DIR}/with-pkg-config")
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
            ${sysroot_flags} "-I${include_dir}" "${source}")
    endforeach()
endforeach()
