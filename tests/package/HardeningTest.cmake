# Installs the build tree and reads from each program and library there how it was hardened. See
# CMakeLists.txt for the variables, and cmake/QuaveraBuild.cmake for what is asked of the tools.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${WORK_DIR}/prefix")
file(GLOB programs "${WORK_DIR}/prefix/${BINDIR}/*")
file(GLOB libraries "${WORK_DIR}/prefix/${LIBDIR}/*.so")

# read(<file> <readelf option>...): what it prints, in `output`.
function(read file)
    run("readelf ${ARGN} ${file}" "${READELF}" --wide ${ARGN} "${file}")
    set(output "${output}" PARENT_SCOPE)
endfunction()

# Segments: what is relocated is read-only from then on, and nothing is written and executed both.
function(check_segments file)
    read("${file}" --program-headers)
    if(NOT output MATCHES "GNU_RELRO")
        fail("${file}: no read-only relocations:\n${output}")
    endif()
    if(NOT output MATCHES "GNU_STACK[^\n]* RW +0x")
        fail("${file}: the stack is not kept from being executed:\n${output}")
    endif()
    if(output MATCHES "LOAD[^\n]* (RWE|WE) +0x")
        fail("${file}: memory that can be both written and executed:\n${output}")
    endif()
endfunction()

# The dynamic section: all is bound at the start, and libraries come from beside the file only.
function(check_dynamic_section file)
    read("${file}" --dynamic)
    if(NOT output MATCHES "\\(FLAGS_1\\)[^\n]*NOW")
        fail("${file}: not bound at its start:\n${output}")
    endif()
    if(output MATCHES "\\(TEXTREL\\)")
        fail("${file}: code that is relocated:\n${output}")
    endif()
    string(REGEX MATCHALL "\\((RPATH|RUNPATH)\\)[^\n]*" paths "${output}")
    foreach(path IN LISTS paths)
        string(REGEX REPLACE ".*\\[(.*)\\].*" "\\1" folders "${path}")
        string(REPLACE ":" ";" folders "${folders}")
        list(FILTER folders EXCLUDE REGEX "^\\$ORIGIN(/|$)")
        if(folders)
            fail("${file}: looks for libraries in ${folders}")
        endif()
    endforeach()
endfunction()

# imports(<variable> <file>): the names of the functions that it takes from others.
function(imports variable file)
    run("nm ${file}" "${NM}" --dynamic --undefined-only --format=posix "${file}")
    string(REGEX MATCHALL "[^\n]+" names "${output}")
    list(TRANSFORM names REPLACE "[ @].*" "")
    set(${variable} "${names}" PARENT_SCOPE)
endfunction()

# The C library's functions that know the size of what they write to stand in for those that do not.
# Not vsnprintf, whose address the standard library takes.
function(check_calls file)
    imports(names "${file}")
    if(NOT "__stack_chk_fail" IN_LIST names)
        fail("${file}: no stack protector")
    endif()
    foreach(name IN ITEMS sprintf snprintf fprintf printf)
        if("${name}" IN_LIST names)
            fail("${file}: calls ${name} itself")
        endif()
    endforeach()
endfunction()

list(LENGTH programs program_count)
list(LENGTH libraries library_count)
if(NOT program_count EQUAL 1 OR NOT library_count EQUAL 3)
    fail("other files than the tool and three libraries: ${programs} ${libraries}")
endif()

foreach(file IN LISTS programs libraries)
    check_segments("${file}")
    check_dynamic_section("${file}")
    check_calls("${file}")
endforeach()

foreach(program IN LISTS programs)
    read("${program}" --file-header)
    if(NOT output MATCHES "Type: +DYN")
        fail("${program}: not position-independent:\n${output}")
    endif()
endforeach()

# Somewhere such a function is called, so that the absence of the others says something.
imports(names "${WORK_DIR}/prefix/${LIBDIR}/libzqshared.so")
if(FORTIFIED AND NOT "__snprintf_chk" IN_LIST names)
    fail("libzqshared.so: __snprintf_chk is not called: ${names}")
endif()

# The note that indirect branches go to marked places only is lost at the link with start files that
# have none, as Debian's; our own objects have it.
if(BRANCHES_PROTECTED)
    file(STRINGS "${OBJECTS}" objects)
    list(LENGTH objects count)
    if(count EQUAL 0)
        fail("no objects in ${OBJECTS}")
    endif()
    foreach(object IN LISTS objects)
        read("${object}" --notes)
        if(NOT output MATCHES "x86 feature: IBT, SHSTK")
            fail("${object}: indirect branches are not protected:\n${output}")
        endif()
    endforeach()
endif()
