# Installs the build tree, makes the reference, and compares the two. See CMakeLists.txt for the
# variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/../package/PackageTesting.cmake")

set(prefix "${WORK_DIR}/installed")
file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${prefix}")

run("the reference" python3 "${SOURCE_DIR}/tests/docs/reference.py"
    --source "${SOURCE_DIR}" --build "${BUILD_DIR}" --work "${WORK_DIR}"
    --headers "${prefix}/${INCLUDEDIR}/quavera" --cmake "${CMAKE_COMMAND}" --doxygen "${DOXYGEN}")
message(STATUS "${output}")
