# Builds without the tool, installs that in parts and as a whole, and removes it again. See
# CMakeLists.txt for the variables.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

set(build_dir "${WORK_DIR}/build")
file(REMOVE_RECURSE "${WORK_DIR}")

# files_in(<variable> <folder>): and links, sorted.
function(files_in variable folder)
    file(GLOB_RECURSE files LIST_DIRECTORIES FALSE RELATIVE "${folder}" "${folder}/*")
    list(SORT files)
    set(${variable} "${files}" PARENT_SCOPE)
endfunction()

# --- what the tool needs is not looked for, and its tests are not there

set(settings
    -DQUAVERA_TOOL=OFF
    "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}"
    "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDEDIR}"
    "-DCMAKE_INSTALL_PREFIX=${WORK_DIR}/prefix"
    -DCMAKE_BUILD_TYPE=None  # the quickest to compile
    -DBUILD_TESTING=ON)
configure("${SOURCE_DIR}" "${build_dir}" ${settings})
file(STRINGS "${build_dir}/CMakeCache.txt" found REGEX "^(CLI11|CURL|MICROHTTPD)_")
if(found)
    fail("what only the tool needs is looked for: ${found}")
endif()

run("list the tests" "${CMAKE_CTEST_COMMAND}" --test-dir "${build_dir}" --show-only)
foreach(test IN ITEMS
        base.Utf8 common.Branding fuzz.XmlText package.Install platform.XmlReader
        records.DataAlbum soap.SoapService threads.RecordTrip)
    if(NOT output MATCHES ": ${test}\n")
        fail("left out with the tool: ${test}")
    endif()
endforeach()
if(output MATCHES ": (tools[-.a-z]*|fuzz.SoapPrinting|growth.ToolGrowth|package.NineteenthRecord)")
    fail("there without the tool: ${CMAKE_MATCH_1}")
endif()

# --- nothing to remove yet

execute_process(COMMAND "${CMAKE_COMMAND}" --build "${build_dir}" --target uninstall
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(status EQUAL 0 OR NOT output MATCHES "Nothing was installed from")
    fail("removes what was never installed:\n${output}")
endif()

# --- the libraries, and one of the tests that are left

build("${build_dir}" --target quavera quavera-soap test-base)
run("a test" "${CMAKE_CTEST_COMMAND}" --test-dir "${build_dir}" --no-tests=error
    --output-on-failure --tests-regex "^base\\.")

# --- each part by itself, and their sum

# has(<component> <pattern>...): each of its files has a name like one of these.
set(parts "")
function(has component)
    run("install ${component}" "${CMAKE_COMMAND}" --install "${build_dir}"
        --component quavera_${component} --prefix "${WORK_DIR}/${component}")
    files_in(files "${WORK_DIR}/${component}")
    list(JOIN ARGN "|" names)
    set(others "${files}")
    list(FILTER others EXCLUDE REGEX "^(${names})$")
    if(others OR NOT files)
        fail("quavera_${component}: ${others} of ${files}")
    endif()
    set(parts "${parts};${files}" PARENT_SCOPE)
endfunction()

string(REGEX REPLACE "/$" "" lib "${LIBDIR}")
set(include "${INCLUDEDIR}/quavera")
has(runtime "${lib}/lib(quavera|zqshared)\\.so\\.[0-9.]+" "share/doc/.*/LICENSE")
has(development "${lib}/lib(quavera|zqshared)\\.so" "${include}/(common|platform|records)/.*"
    "${lib}/cmake/Quavera/Quavera(Config|ConfigVersion|RecordsTargets|RecordsTargets-.*)\\.cmake"
    "${lib}/pkgconfig/(quavera|zqshared)\\.pc" "share/gdb/auto-load/.*/libzqshared\\.so.*-gdb\\.py")
has(soap_runtime "${lib}/libquavera-soap\\.so\\.[0-9.]+")
has(soap_development "${lib}/libquavera-soap\\.so" "${include}/soap/.*"
    "${lib}/cmake/Quavera/(QuaveraSoapTargets.*|FindGSOAP)\\.cmake"
    "${lib}/pkgconfig/quavera-soap\\.pc" "share/quavera/Quavera\\.wsdl")
list(REMOVE_ITEM parts "")
list(SORT parts)

file(GLOB manifests "${build_dir}/install_manifest*.txt")
file(REMOVE ${manifests})

# --- install and remove: what was there before stays

set(prefix "${WORK_DIR}/prefix")
set(strangers "${INCLUDEDIR}/quavera/common/Stranger.h" "${lib}/libstranger.so"
    "share/doc/stranger")
foreach(stranger IN LISTS strangers)
    file(WRITE "${prefix}/${stranger}" "not ours")
endforeach()
run("install" "${CMAKE_COMMAND}" --install "${build_dir}")
files_in(installed "${prefix}")
list(REMOVE_ITEM installed ${strangers})
# But for the folder that is named after the prefix.
set(whole "${installed}")
list(TRANSFORM whole REPLACE "/auto-load/.*/" "/auto-load/")
list(TRANSFORM parts REPLACE "/auto-load/.*/" "/auto-load/")
if(NOT whole STREQUAL parts)
    fail("the parts are not the whole:\n${parts}\n${whole}")
endif()

file(REMOVE "${prefix}/${lib}/libzqshared.so")
run("uninstall" "${CMAKE_COMMAND}" --build "${build_dir}" --target uninstall)
foreach(file IN LISTS installed)
    set(said "Removed: ${prefix}/${file}")
    if(file STREQUAL "${lib}/libzqshared.so")
        set(said "Not there: ${prefix}/${file}")
    endif()
    string(FIND "${output}" "${said}\n" position)
    if(position EQUAL -1)
        fail("not said: ${said}\n${output}")
    endif()
endforeach()
files_in(left "${prefix}")
list(SORT strangers)
if(NOT left STREQUAL strangers)
    fail("left: ${left}")
endif()
foreach(folder IN ITEMS "${include}/records" "${include}/soap" "${lib}/cmake/Quavera")
    if(EXISTS "${prefix}/${folder}")
        fail("an empty folder is left: ${folder}")
    endif()
endforeach()

# --- the same below another root, as packagers install

set(ENV{DESTDIR} "${WORK_DIR}/root")
run("install" "${CMAKE_COMMAND}" --install "${build_dir}")
run("uninstall" "${CMAKE_COMMAND}" --build "${build_dir}" --target uninstall)
unset(ENV{DESTDIR})
files_in(left "${WORK_DIR}/root")
if(left OR NOT output MATCHES "Removed: ${WORK_DIR}/root/")
    fail("below DESTDIR: ${left}\n${output}")
endif()
