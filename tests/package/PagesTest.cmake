# Installs the build tree and does what the pages show a user: in a clean folder, with that output.
# See CMakeLists.txt for the variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(prefix "${WORK_DIR}/installed")
file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${prefix}")

# All pages there are.
file(GLOB entries "${SOURCE_DIR}/*")
list(FILTER entries EXCLUDE REGEX "/build[^/]*$")
set(pages "")
foreach(entry IN LISTS entries)
    if(IS_DIRECTORY "${entry}")
        file(GLOB_RECURSE found "${entry}/*.md")
        list(APPEND pages ${found})
    elseif(entry MATCHES "\\.md$")
        list(APPEND pages "${entry}")
    endif()
endforeach()

# do_blocks(<what> <script> <folder> <page>...): what it prints in `output`.
function(do_blocks what script folder)
    run("${what}" python3 "${SOURCE_DIR}/tests/docs/${script}" --source "${SOURCE_DIR}"
        --prefix "${prefix}" --work "${WORK_DIR}/${folder}"
        "--cmake=-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" "--cmake=-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
        "--cmake=-G${GENERATOR}" ${ARGN})
    message(STATUS "${output}")
endfunction()

do_blocks("what the pages show" blocks.py pages ${pages})
do_blocks("what broken pages show" broken_pages.py broken)
