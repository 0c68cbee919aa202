# Installs the build tree, and has gdb look at a program that uses what is there: alive, as a core
# file, with its trees overwritten, and in a locale of ASCII alone. See CMakeLists.txt for the
# variables, and debugger/check.py for what it is told.

cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/PackageTesting.cmake")

find_program(gdb gdb)
if(NOT gdb)
    fail("gdb is not there")
    return()
endif()

set(debugger_dir "${CMAKE_CURRENT_LIST_DIR}/debugger")
set(prefix "${WORK_DIR}/prefix")
set(scripts "${prefix}/${DATADIR}/gdb/auto-load")
set(program "${WORK_DIR}/program")
set(core "${WORK_DIR}/core")
set(by_hand -x "${SOURCE_DIR}/platform/gdb/libzqshared-gdb.py")

# look(<what> <locale> TRANSCRIPTS <file>... GDB <argument>...): has gdb compare them.
function(look what locale)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "TRANSCRIPTS;GDB")
    list(JOIN arg_TRANSCRIPTS ":" transcripts)
    run("${what}" "${CMAKE_COMMAND}" -E env "LC_ALL=${locale}" "CHECK_TRANSCRIPTS=${transcripts}"
        "${gdb}" -batch -nx ${arg_GDB} -x "${debugger_dir}/check.py")
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
install_build_tree("${prefix}")
run("compile" "${CXX_COMPILER}" -std=c++17 ${flags} -g -O0 "${debugger_dir}/main.cpp" -o "${program}"
    "-I${prefix}/${INCLUDEDIR}/quavera" "-L${prefix}/${LIBDIR}" -lzqshared
    "-Wl,-rpath,${prefix}/${LIBDIR}")

# What a user gets who tells gdb of a prefix that is not its own, and nothing else.
look("found by gdb itself" C.UTF-8
    TRANSCRIPTS "${SOURCE_DIR}/docs/debugging.md"
    GDB -iex "set auto-load scripts-directory $debugdir:$datadir/auto-load:${scripts}"
        -iex "add-auto-load-safe-path ${scripts}" "${program}")

set(ENV{CHECK_CORE} "${core}")
look("alive" C.UTF-8
    TRANSCRIPTS "${debugger_dir}/values.txt"
    GDB ${by_hand} "${program}")
unset(ENV{CHECK_CORE})
look("a core file" C.UTF-8
    TRANSCRIPTS "${debugger_dir}/values.txt"
    GDB ${by_hand} "${program}" "${core}")
file(REMOVE "${core}")

look("overwritten" C.UTF-8
    TRANSCRIPTS "${debugger_dir}/overwritten.txt"
    GDB ${by_hand} "${program}")
look("in ASCII" C
    TRANSCRIPTS "${debugger_dir}/ascii.txt"
    GDB ${by_hand} "${program}")
