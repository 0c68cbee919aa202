# Installs the build tree and builds the examples against what is there, with CMake and by the lines
# of their README for pkg-config; runs both, and what the README shows. See CMakeLists.txt for the
# variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(prefix "${WORK_DIR}/installed")
set(data_dir "${SOURCE_DIR}/tests/data")
set(album Alb.40013100)
set(album_document "${SOURCE_DIR}/tools/catalog/album/${album}.xml")

file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${prefix}")

# --- with CMake, from a folder of their own

file(COPY "${SOURCE_DIR}/examples" DESTINATION "${WORK_DIR}")
file(GLOB_RECURSE sources LIST_DIRECTORIES TRUE "${WORK_DIR}/examples/*")
find_package_in(where "${prefix}")
configure("${WORK_DIR}/examples" "${WORK_DIR}/build" ${where}
    "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${WORK_DIR}/with-cmake")
build("${WORK_DIR}/build")
file(GLOB_RECURSE left LIST_DIRECTORIES TRUE "${WORK_DIR}/examples/*")
if(NOT left STREQUAL sources)
    fail("the build writes into the folder of the sources: ${left}")
endif()
foreach(name IN ITEMS log-reader soap-client tree-receiver)
    configure("${WORK_DIR}/examples/${name}" "${WORK_DIR}/alone" ${where})  # no build: it is the same
    file(REMOVE_RECURSE "${WORK_DIR}/alone")
endforeach()

# --- with pkg-config

set(ways with-cmake)
find_program(pkg_config pkg-config)
if(pkg_config)
    list(APPEND ways with-pkg-config)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    unset(ENV{PKG_CONFIG_SYSROOT_DIR})  # the prefix is outside of it, and the compiler knows it
    set(static "")
    if(LIBRARY_TYPE STREQUAL STATIC)
        set(static " --static")
    endif()
    list(JOIN sysroot_flags " " compiler)
    set(compiler "'${CXX_COMPILER}' ${CXX_FLAGS} ${compiler}")

    set(folder "${WORK_DIR}/with-pkg-config")
    file(MAKE_DIRECTORY "${folder}")
    file(CREATE_LINK "${WORK_DIR}/examples" "${folder}/examples" SYMBOLIC)
    file(STRINGS "${SOURCE_DIR}/examples/README.md" lines REGEX "^c\\+\\+ .*pkg-config")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^c\\+\\+ " "${compiler} " command "${line}")
        string(REPLACE "pkg-config " "'${pkg_config}'${static} " command "${command}")
        run("${line}" "${CMAKE_COMMAND}" -E chdir "${folder}" sh -c "${command}")
    endforeach()
else()
    message(STATUS "pkg-config is not there: its lines are not tried")
endif()

# --- what they have to print

# read_text(<variable> <file>): its text, of which CMake takes no bracket for the end of a list's.
function(read_text variable file)
    file(READ "${file}" text)
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# element(<variable> <name> <text>): the content of the first element of that name.
function(element variable name text)
    string(REGEX MATCH "<${name}>([^<]*)</${name}>" found "${text}")
    set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

# What the receiver prints of the sample catalogue's album: of its document, not of a tree.
read_text(document "${album_document}")
string(REPLACE "&amp;" "&" document "${document}")
string(FIND "${document}" "<tracks>" tracks_begin)
string(SUBSTRING "${document}" 0 ${tracks_begin} summary)
string(SUBSTRING "${document}" ${tracks_begin} -1 tracks)
element(name name "${summary}")
element(artist primaryArtistDisplayName "${summary}")
element(year releaseYear "${summary}")
set(album_text "${name} (${artist}, ${year})\n")
string(REGEX MATCHALL "<items>" items "${tracks}")
list(LENGTH items track_count)
foreach(index RANGE 1 ${track_count})
    element(name name "${tracks}")
    element(seconds playbackSeconds "${tracks}")
    string(LENGTH " ${index}" width)
    string(REPEAT " " "4 - width" padding)
endforeach()
