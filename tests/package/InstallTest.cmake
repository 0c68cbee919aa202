# Installs the build tree, moves the prefix elsewhere, and then uses what is there: the tool, the
# CMake package, the pkg-config files, and each header by itself. See CMakeLists.txt for the
# variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(prefix "${WORK_DIR}/moved/to here")
set(include_dir "${prefix}/${INCLUDEDIR}/quavera")

# --- install and move

file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${WORK_DIR}/installed")
file(MAKE_DIRECTORY "${WORK_DIR}/moved")
file(RENAME "${WORK_DIR}/installed" "${prefix}")

set(ending so)
if(LIBRARY_TYPE STREQUAL STATIC)
    set(ending a)
endif()
foreach(path IN ITEMS
        "${LIBDIR}/libquavera.${ending}" "${LIBDIR}/libquavera-soap.${ending}"
        "${LIBDIR}/libzqshared.${ending}" "${LIBDIR}/cmake/Quavera/QuaveraConfig.cmake"
        "${LIBDIR}/pkgconfig/quavera.pc" "${LIBDIR}/pkgconfig/quavera-soap.pc"
        "${LIBDIR}/pkgconfig/zqshared.pc" "${INCLUDEDIR}/quavera/common/QuaveraCommon.h"
        "${INCLUDEDIR}/quavera/platform/zqshared.h" "${INCLUDEDIR}/quavera/records/QuavData.h"
        "${INCLUDEDIR}/quavera/soap/QuaveraStub.h" "${INCLUDEDIR}/quavera/soap/QuaveraH.h"
        "share/quavera/Quavera.wsdl")
    if(NOT EXISTS "${prefix}/${path}")
        fail("not installed: ${path}")
    endif()
endforeach()

# --- the tool

if(WITH_TOOL)
    run("installed tool" ${emulator} "${prefix}/${BINDIR}/quavera" demo)
    if(NOT output MATCHES " = ")
        fail("the installed tool's demonstration prints no record:\n${output}")
    endif()

    install_build_tree("${WORK_DIR}/tools" --component quavera_tools)
    file(GLOB_RECURSE files LIST_DIRECTORIES FALSE RELATIVE "${WORK_DIR}/tools"
        "${WORK_DIR}/tools/*")
    if(NOT files STREQUAL
            "${BINDIR}/quavera;share/bash-completion/completions/quavera;share/man/man1/quavera.1")
        fail("the component quavera_tools is not the tool and what helps with it: ${files}")
    endif()
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
foreach(program IN ITEMS consumer consumer-hidden conversion context context-as-needed version)
    run("run ${program}" ${emulator} "${consumer_build}/${program}")
endforeach()

# --- components of the package, asked for in each way

# looks_for(<arguments of find_package> EXPECT <line>... [NEVER <pattern>] [WITH <argument>...]):
# what a project finds.
set(components_build "${WORK_DIR}/components")
function(looks_for arguments)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "NEVER" "EXPECT;WITH")
    configure("${COMPONENTS_DIR}" "${components_build}" ${where} -U "*GSOAP*"
        "-DARGUMENTS=${arguments}" ${arg_WITH})
    foreach(line IN LISTS arg_EXPECT)
        string(FIND "${output}" "-- ${line}\n" position)
        if(position EQUAL -1)
            fail("find_package(Quavera ${arguments}): not \"${line}\":\n${output}")
        endif()
    endforeach()
    if(arg_NEVER AND "${output}${errors}" MATCHES "${arg_NEVER}")
        fail("find_package(Quavera ${arguments}) says ${CMAKE_MATCH_0}:\n${output}${errors}")
    endif()
endfunction()

# refused(<arguments of find_package> <what it says> <argument>...)
function(refused arguments message)
    configure_fails("${message}" "${COMPONENTS_DIR}" "${components_build}" ${where} -U "*GSOAP*"
        "-DARGUMENTS=${arguments}" ${ARGN})
endfunction()

set(all "targets: Quavera::quavera Quavera::zqshared Quavera::soap")
set(records "targets: Quavera::quavera Quavera::zqshared")
set(without_gsoap "-DCMAKE_DISABLE_FIND_PACKAGE_GSOAP=ON")
set(needs_gsoap "Its component soap needs gSOAP, which was not found")

looks_for("REQUIRED"
    EXPECT "found: Quavera Quavera_records Quavera_soap" "${all}")
looks_for("REQUIRED COMPONENTS records soap"
    EXPECT "found: Quavera Quavera_records Quavera_soap" "${all}")
looks_for("REQUIRED COMPONENTS soap"
    EXPECT "found: Quavera Quavera_soap" "targets: Quavera::soap")
looks_for("REQUIRED COMPONENTS records"
    EXPECT "found: Quavera Quavera_records" "${records}" "gSOAP looked for: no")
looks_for("COMPONENTS records lyrics"
    EXPECT "found: Quavera_records"
        "message: It has no component \"lyrics\"; its components are records and soap.")
looks_for("REQUIRED COMPONENTS records OPTIONAL_COMPONENTS soap lyrics"
    EXPECT "found: Quavera Quavera_records Quavera_soap" "${all}" "message: ")
looks_for("REQUIRED COMPONENTS records OPTIONAL_COMPONENTS soap" WITH "${without_gsoap}"
    EXPECT "found: Quavera Quavera_records" "${records}" "message: ")
looks_for("REQUIRED COMPONENTS records" WITH "${without_gsoap}"
    EXPECT "found: Quavera Quavera_records" "${records}")
build("${components_build}")
run("run records" ${emulator} "${components_build}/records")
looks_for("QUIET COMPONENTS soap" WITH "${without_gsoap}" -DSHOWS_MESSAGE=OFF
    EXPECT "found:" "targets:" NEVER "gSOAP,|Could NOT|Warning")
refused("REQUIRED COMPONENTS lyrics" "It has no component \"lyrics\"")
refused("REQUIRED COMPONENTS records soap" "${needs_gsoap}" "${without_gsoap}")
refused("REQUIRED" "${needs_gsoap}" "${without_gsoap}")
file(WRITE "${WORK_DIR}/other-gsoap/stdsoap2.h" "#define GSOAP_VERSION 208001\n")
refused("REQUIRED COMPONENTS soap" "works with that version only; 2.8.1 was found"
    -UCMAKE_DISABLE_FIND_PACKAGE_GSOAP "-DGSOAP_INCLUDE_DIR=${WORK_DIR}/other-gsoap")
file(RENAME "${prefix}/${LIBDIR}/cmake/Quavera/QuaveraSoapTargets.cmake" "${WORK_DIR}/apart.cmake")
refused("REQUIRED COMPONENTS soap" "Its component soap is not installed here.")
looks_for("REQUIRED" WITH -UCMAKE_DISABLE_FIND_PACKAGE_GSOAP
    EXPECT "found: Quavera Quavera_records" "${records}" "gSOAP looked for: no")
file(RENAME "${WORK_DIR}/apart.cmake" "${prefix}/${LIBDIR}/cmake/Quavera/QuaveraSoapTargets.cmake")

# --- programs that use pkg-config: each package alone, and two of them

foreach(program IN ITEMS
        "conversion:quavera"
        "nodes:zqshared"
        "records:quavera"
        "client:quavera-soap"
        "context:quavera-soap"
        "main:quavera quavera-soap"
        "main:quavera-soap quavera")
    string(REGEX MATCH "^(.+):(.+)$" program "${program}")
    set(packages "${CMAKE_MATCH_2}")
    set(program "${WORK_DIR}/${CMAKE_MATCH_1}")
    compile_with_pkg_config(is_compiled "${prefix}" "${packages}"
        "${CONSUMER_DIR}/${CMAKE_MATCH_1}.cpp" "${program}")
    if(is_compiled)
        run("run with pkg-config ${packages}" ${emulator} "${program}")
        run("dynamic section" "${READELF}" -d --wide "${program}")
        if(NOT packages MATCHES "soap" AND output MATCHES "NEEDED[^\n]*gsoap")
            fail("with ${packages}, a program needs gSOAP:\n${output}")
        endif()
    endif()
endforeach()

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
