# Takes the project into another one, which looks whether anything of its own has changed and then
# uses the libraries. See CMakeLists.txt for the variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
set(settings
    "-DQUAVERA_DIR=${SOURCE_DIR}"
    "-DQUAVERA_EXPECTED_VERSION=${VERSION}"
    "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}"
    "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDEDIR}")

# What only the tool and the tests need is not looked for.
foreach(package IN ITEMS CLI11 CURL GTest Threads benchmark)
    list(APPEND settings "-DCMAKE_DISABLE_FIND_PACKAGE_${package}=ON")
endforeach()

# tests_are(<build> <name>...): what ctest knows there.
function(tests_are folder)
    run("list the tests" "${CMAKE_CTEST_COMMAND}" --test-dir "${folder}" --show-only)
    string(REGEX MATCHALL "Test +#[0-9]+: [^\n]+" tests "${output}")
    list(TRANSFORM tests REPLACE "^[^:]+: " "")
    if(NOT tests STREQUAL ARGN)
        fail("tests of the project around: ${tests}")
    endif()
endfunction()

set(tests parent parent-records parent-version parent-context)

configure("${PARENT_DIR}" "${WORK_DIR}/added" ${settings} -DWAY=add_subdirectory)
tests_are("${WORK_DIR}/added" ${tests})

# Static libraries, as a project that takes others in likes to have them.
set(build_dir "${WORK_DIR}/fetched")
configure("${PARENT_DIR}" "${build_dir}" ${settings} -DWAY=FetchContent -DWITH_CTEST=ON
    -DBUILD_SHARED_LIBS=OFF)
tests_are("${build_dir}" ${tests})
build("${build_dir}")
run("the tests" "${CMAKE_CTEST_COMMAND}" --test-dir "${build_dir}" --no-tests=error
    --output-on-failure)

file(GLOB made RELATIVE "${build_dir}" "${build_dir}/out/*")
set(expected out/libquavera-soap.a out/libquavera.a out/libzqshared.a ${tests})
list(TRANSFORM expected REPLACE "^parent" "out/parent")
list(SORT made)
list(SORT expected)
if(NOT made STREQUAL expected)
    fail("not where the project around builds, or more than is needed: ${made}")
endif()

# All that is made for the libraries is in their own folder.
file(GLOB made LIST_DIRECTORIES TRUE RELATIVE "${build_dir}" "${build_dir}/*")
list(REMOVE_ITEM made
    CMakeCache.txt CMakeFiles CTestTestfile.cmake DartConfiguration.tcl Makefile Testing _deps
    build.ninja cmake_install.cmake out .ninja_deps .ninja_log)
if(made)
    fail("beside the folder of the project: ${made}")
endif()

# Nothing is installed unless that is asked for.
run("install" "${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${WORK_DIR}/prefix")
if(EXISTS "${WORK_DIR}/prefix")
    fail("the project around installs Quavera, too:\n${output}")
endif()
configure("${PARENT_DIR}" "${build_dir}" -DQUAVERA_INSTALL=ON)
build("${build_dir}")
run("install" "${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${WORK_DIR}/prefix")
foreach(path IN ITEMS
        "${LIBDIR}/libquavera.a" "${LIBDIR}/cmake/Quavera/QuaveraConfig.cmake"
        "${LIBDIR}/pkgconfig/quavera.pc" "${INCLUDEDIR}/quavera/common/Version.h")
    if(NOT EXISTS "${WORK_DIR}/prefix/${path}")
        fail("not installed: ${path}")
    endif()
endforeach()
