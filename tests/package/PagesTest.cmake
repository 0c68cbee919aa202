# Installs the build tree and does what the README shows a new user: in a clean folder, with that
# output. See CMakeLists.txt for the variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(prefix "${WORK_DIR}/installed")
file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${prefix}")

run("what the README shows" python3 "${SOURCE_DIR}/tests/docs/blocks.py"
    --prefix "${prefix}" --work "${WORK_DIR}/pages"
    "--cmake=-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" "--cmake=-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "--cmake=-G${GENERATOR}"
    "${SOURCE_DIR}/README.md")
message(STATUS "${output}")
