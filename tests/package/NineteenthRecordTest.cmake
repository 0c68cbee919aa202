# Adds one more record to a copy of the project, by the list "A new record" of CONTRIBUTING.md and by
# nothing else, and looks whether the build, its test and the tool know it. See CMakeLists.txt for
# the variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(record_dir "${CMAKE_CURRENT_LIST_DIR}/nineteenth-record")
set(class DataTrackLite)
set(copy "${WORK_DIR}/project")
set(build_dir "${WORK_DIR}/build")

# --- a copy of the project, without what was built in it

file(REMOVE_RECURSE "${WORK_DIR}")
file(GLOB entries "${SOURCE_DIR}/*")
foreach(entry IN LISTS entries)
    string(FIND "${WORK_DIR}" "${entry}/" position)
    if(NOT position EQUAL 0 AND NOT entry STREQUAL "${SOURCE_DIR}/build")
        file(COPY "${entry}" DESTINATION "${copy}")
    endif()
endforeach()

# --- the new record: header, source, test, sample documents, and its line

file(COPY "${record_dir}/records" "${record_dir}/tests" DESTINATION "${copy}")
file(READ "${record_dir}/Records.def.line" line)
file(READ "${copy}/records/Records.def" registration)
string(REPLACE "\n#undef QUAVERA_RECORD\n" "${line}\n#undef QUAVERA_RECORD\n" registration
    "${registration}")
file(WRITE "${copy}/records/Records.def" "${registration}")

# --- build and test

configure("${copy}" "${build_dir}"
    -DCMAKE_BUILD_TYPE=None  # the quickest to compile
    -DBUILD_TESTING=ON
    -DQUAVERA_WERROR=ON)
build("${build_dir}" --target quavera-tool test-records)
run("the record's test" "${CMAKE_CTEST_COMMAND}" --test-dir "${build_dir}" --no-tests=error
    --output-on-failure --tests-regex "^records\\.(${class}|RecordRules)$")

# --- the tool

# prints(<file> <ending> <argument>...): the tool prints what the file holds, and the ending.
function(prints file ending)
    run("quavera ${ARGN}" "${build_dir}/tools/quavera" ${ARGN})
    file(READ "${samples}/${file}" expected)
    if(NOT output STREQUAL "${expected}${ending}")
        fail("quavera ${ARGN} does not print ${file}:\n${output}")
    endif()
endfunction()

set(samples "${copy}/tests/data/${class}")
prints(full.txt "" show --record ${class} "${samples}/full.xml")
prints(full.tree.xml "\n" tree --record ${class} "${samples}/full.xml")
prints(full.txt "" text "${samples}/full.tree.xml")  # by its element

# It tells of the record what its rows say.
# tells(<expected> <argument>...): the tool prints a line that matches.
function(tells expected)
    run("quavera ${ARGN}" "${build_dir}/tools/quavera" ${ARGN})
    if(NOT "\n${output}" MATCHES "\n${expected}\n")
        fail("quavera ${ARGN} does not print ${expected}:\n${output}")
    endif()
endfunction()

tells("${class} +LiteTrackMetadata +TrackLite +element" records)
tells("Name +text +base64 of UTF-8\nTrackId +text +as it stands\nTrackIndex +number +decimal.*"
    records ${class})
set(json "{\"Name\":\"Über den Wolken – 夜\",\"TrackId\":\"Tra.1901\",\"TrackIndex\":19}")
tells("${json}" show --json --record ${class} "${samples}/full.xml")
tells("${json}" text --json "${samples}/full.tree.xml")

# Its page is made of the same.
run("pages" python3 "${copy}/docs/pages.py" --tool "${build_dir}/tools/quavera" records)
file(READ "${copy}/docs/records/${class}.md" page)
file(READ "${samples}/full.txt" text)
string(REPLACE "\r\n" "\n" text "${text}")
foreach(part IN ITEMS "| `TrackIndex` | number |" "`\"trackIndex = \"`" "${text}")
    string(FIND "${page}" "${part}" position)
    if(position EQUAL -1)
        fail("the record's page lacks ${part}:\n${page}")
    endif()
endforeach()
