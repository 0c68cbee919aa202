# Builds the libraries on another platform library than the bundled one, installs them, and uses the
# result: the CMake package, the pkg-config file and the headers. See CMakeLists.txt for the
# variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(library_build "${WORK_DIR}/library")
set(prefix "${WORK_DIR}/prefix")
set(include_dir "${prefix}/${INCLUDEDIR}/quavera")

# --- the platform library, as its maker hands it out

# Its header is in two files, one of them named like one of the bundled library's. No other of that
# one's names is there, so that they would be found only where they must not be looked for.
file(REMOVE_RECURSE "${WORK_DIR}")
set(platform "${WORK_DIR}/the platform")
file(READ "${PLATFORM_HEADER}" contents)
file(WRITE "${platform}/include/platform/XmlNode.h" "${contents}")
file(WRITE "${platform}/include/platform/zqshared.h" [[
#include "platform/XmlNode.h"
#if __has_include("platform/AutoCom.h") || __has_include("platform/Node.h")
#error "headers of another platform library can be found"
#endif
]])
file(COPY "${RECORDING_HEADER}" DESTINATION "${platform}/include")
file(COPY "${PLATFORM_LIBRARY}" "${STATIC_PLATFORM_LIBRARY}" DESTINATION "${platform}/lib")
get_filename_component(library_name "${PLATFORM_LIBRARY}" NAME)
get_filename_component(static_library_name "${STATIC_PLATFORM_LIBRARY}" NAME)
set(library "${platform}/lib/${library_name}")

# --- settings that cannot be

set(settings
    -DQUAVERA_PLATFORM=external
    "-DQUAVERA_PLATFORM_INCLUDE_DIR=${platform}/include"
    "-DQUAVERA_PLATFORM_LIBRARY=${library}"
    "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}"
    "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDEDIR}"
    "-DCMAKE_INSTALL_BINDIR=${BINDIR}"
    -DCMAKE_BUILD_TYPE=None  # the quickest to compile
    -DBUILD_TESTING=ON
    -DQUAVERA_BENCHMARKS=ON
    -DQUAVERA_WERROR=ON)

configure_fails("QUAVERA_PLATFORM is \"own\". It has to be \"bundled\" or \"external\"."
    "${SOURCE_DIR}" "${library_build}" ${settings} -DQUAVERA_PLATFORM=own)
configure_fails("is no platform/zqshared.h in the folder \"\". Set QUAVERA_PLATFORM_INCLUDE_DIR"
    "${SOURCE_DIR}" "${library_build}" ${settings} -DQUAVERA_PLATFORM_INCLUDE_DIR=)
configure_fails("There is no platform/zqshared.h in the folder \"${prefix}\""
    "${SOURCE_DIR}" "${library_build}" ${settings} "-DQUAVERA_PLATFORM_INCLUDE_DIR=${prefix}")
configure_fails("There is no library file \"\". Set QUAVERA_PLATFORM_LIBRARY"
    "${SOURCE_DIR}" "${library_build}" ${settings} -DQUAVERA_PLATFORM_LIBRARY=)
configure_fails("There is no library file \"${library}.1\""
    "${SOURCE_DIR}" "${library_build}" ${settings} "-DQUAVERA_PLATFORM_LIBRARY=${library}.1")
configure_fails("There is no library file \"${platform}/lib\""
    "${SOURCE_DIR}" "${library_build}" ${settings} "-DQUAVERA_PLATFORM_LIBRARY=${platform}/lib")

# --- build and install

configure("${SOURCE_DIR}" "${library_build}" ${settings})
foreach(option IN ITEMS BUILD_TESTING QUAVERA_BENCHMARKS)
    if(NOT output MATCHES "${option} has no effect")
        fail("nothing says that ${option} has no effect:\n${output}")
    endif()
endforeach()
build("${library_build}")
run("install" "${CMAKE_COMMAND}" --install "${library_build}" --prefix "${prefix}")

foreach(path IN ITEMS
        "${LIBDIR}/libquavera.so" "${LIBDIR}/libquavera-soap.so"
        "${LIBDIR}/cmake/Quavera/QuaveraConfig.cmake" "${LIBDIR}/pkgconfig/quavera.pc"
        "${LIBDIR}/pkgconfig/quavera-soap.pc" "${INCLUDEDIR}/quavera/common/Version.h"
        "${INCLUDEDIR}/quavera/common/QuaveraCommon.h" "${INCLUDEDIR}/quavera/records/QuavData.h"
        "${INCLUDEDIR}/quavera/soap/QuaveraStub.h")
    if(NOT EXISTS "${prefix}/${path}")
        fail("not installed: ${path}")
    endif()
endforeach()
file(GLOB_RECURSE made LIST_DIRECTORIES FALSE RELATIVE "${WORK_DIR}"
    "${prefix}/*" "${library_build}/*zqshared*")
list(FILTER made INCLUDE REGEX "zqshared|controller|/platform/|quavera\\.1$|^prefix/${BINDIR}/")
if(made)
    fail("a platform library or the tool has been built or installed: ${made}")
endif()

# --- what the library is linked with

run("dynamic section" "${READELF}" -d --wide "${prefix}/${LIBDIR}/libquavera.so")
if(NOT output MATCHES "NEEDED[^\n]*\\[${library_name}\\]" OR output MATCHES "zqshared")
    fail("libquavera.so does not need ${library_name}, by that name, and no other:\n${output}")
endif()
if(NOT output MATCHES "\\(R(UN)?PATH\\)[^\n]*\\[\\$ORIGIN\\]")
    fail("libquavera.so does not look beside itself first:\n${output}")
endif()

configure("${SOURCE_DIR}" "${library_build}"
    "-DQUAVERA_PLATFORM_LIBRARY=${platform}/lib/${static_library_name}")
build("${library_build}" --target quavera)
run("dynamic section" "${READELF}" -d --wide "${library_build}/libquavera.so")
if(output MATCHES "controller" OR output MATCHES "zqshared")
    fail("libquavera.so needs a platform library although it holds a static one:\n${output}")
endif()

# --- no path of this machine, but for the places of the platform library

file(GLOB_RECURSE texts LIST_DIRECTORIES FALSE
    "${prefix}/*.h" "${prefix}/*.cmake" "${prefix}/*.pc" "${prefix}/share/*")
list(FILTER texts EXCLUDE REGEX "/(QuaveraPlatform\\.cmake|quavera\\.pc)$")
names_none_of("${SOURCE_DIR}" "${WORK_DIR}" FILES ${texts})

# --- a project that uses the CMake package

find_package_in(where "${prefix}")
configure("${CONSUMER_DIR}" "${WORK_DIR}/consumer" ${where})

set(moved "${WORK_DIR}/another place")
file(RENAME "${platform}" "${moved}")
set(include_setting "-DQUAVERA_PLATFORM_INCLUDE_DIR=${moved}/include")
set(library_setting "-DQUAVERA_PLATFORM_LIBRARY=${moved}/lib/${library_name}")
configure_fails("Set QUAVERA_PLATFORM_INCLUDE_DIR to the folder that it is in."
    "${CONSUMER_DIR}" "${WORK_DIR}/consumer" ${where})
configure_fails("The platform library ${library} is not there. Set QUAVERA_PLATFORM_LIBRARY"
    "${CONSUMER_DIR}" "${WORK_DIR}/consumer" ${where} "${include_setting}")
configure("${CONSUMER_DIR}" "${WORK_DIR}/consumer" ${where} "${include_setting}"
    "${library_setting}")
build("${WORK_DIR}/consumer")
run("run the consumer" ${emulator} "${WORK_DIR}/consumer/consumer")

# --- a program that uses pkg-config

# Words of a .pc file end at a blank.
string(REPLACE " " "\\ " moved_in_pc "${moved}")
compile_with_pkg_config(is_compiled "${prefix}" "quavera quavera-soap" "${CONSUMER_DIR}/main.cpp"
    "${WORK_DIR}/with-pkg-config"
    "--define-variable=platform_includedir=${moved_in_pc}/include"
    "--define-variable=platform_libdir=${moved_in_pc}/lib")
if(is_compiled)
    set(ENV{LD_LIBRARY_PATH} "${moved}/lib")
    run("run with pkg-config" ${emulator} "${WORK_DIR}/with-pkg-config")
    unset(ENV{LD_LIBRARY_PATH})
endif()

# --- the headers, with what the platform offers

file(GLOB_RECURSE headers RELATIVE "${include_dir}" "${include_dir}/common/*.h"
    "${include_dir}/records/*.h")
set(source "${WORK_DIR}/headers.cpp")
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"\n")
list(JOIN headers "" text)
file(WRITE "${source}" "${text}")
if(NOT text MATCHES "records/DataAlbum\\.h")
    fail("no headers in ${include_dir}")
endif()
run("compile the headers" "${CXX_COMPILER}" -std=c++17 -fsyntax-only -Wall -Wextra -Wpedantic
    -Werror ${sysroot_flags} "-I${include_dir}" -isystem "${moved}/include" "${source}")

# --- the example's platform library, and its program on the libraries that are built on that

# The way of examples/README.md; libquavera-soap, which needs no platform library, is built already.
set(example_build "${WORK_DIR}/example")
set(example_prefix "${WORK_DIR}/on the example")
set(programs "${WORK_DIR}/example's program")
configure("${EXAMPLE_DIR}" "${example_build}" -DCMAKE_DISABLE_FIND_PACKAGE_Quavera=ON
    "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}" "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDEDIR}"
    "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${programs}")
build("${example_build}")
run("install" "${CMAKE_COMMAND}" --install "${example_build}" --prefix "${example_prefix}")
configure("${SOURCE_DIR}" "${library_build}"
    "-DQUAVERA_PLATFORM_INCLUDE_DIR=${example_prefix}/${INCLUDEDIR}"
    "-DQUAVERA_PLATFORM_LIBRARY=${example_prefix}/${LIBDIR}/libcontroller.so")
build("${library_build}")
run("install" "${CMAKE_COMMAND}" --install "${library_build}" --prefix "${example_prefix}")
run("dynamic section" "${READELF}" -d --wide "${example_prefix}/${LIBDIR}/libquavera.so")
if(NOT output MATCHES "NEEDED[^\n]*\\[libcontroller\\.so\\]" OR output MATCHES "zqshared")
    fail("libquavera.so does not need the example's platform library, and no other:\n${output}")
endif()

find_package_in(where "${example_prefix}")
configure("${EXAMPLE_DIR}" "${example_build}" ${where} -UCMAKE_DISABLE_FIND_PACKAGE_Quavera)
build("${example_build}")
run("the example's program" python3 "${CMAKE_CURRENT_LIST_DIR}/examples/check.py" --only-platform
    --programs "${programs}" --sources "${SOURCE_DIR}" "--emulator=${EMULATOR}")
