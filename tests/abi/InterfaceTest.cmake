# Compares a library's binary interface (functions, classes, layouts, virtual tables), as its
# debugging information tells it, with the recorded one of the same architecture.
#
#   LIBRARY, NAME, ARCHITECTURE, WORK_DIR; with ACCEPT, the record is written anew

cmake_minimum_required(VERSION 3.25)

set(record "${CMAKE_CURRENT_LIST_DIR}/${NAME}.${ARCHITECTURE}.abi")
set(found "${WORK_DIR}/${NAME}.abi")
if(ACCEPT)
    set(found "${record}")
endif()

foreach(tool IN ITEMS abidw abidiff)
    find_program(${tool} ${tool})
    if(NOT ${tool})
        message(FATAL_ERROR "${tool} is missing (Debian: abigail-tools)")
    endif()
endforeach()

execute_process(
    COMMAND "${abidw}" --no-parameter-names --exported-interfaces-only --no-corpus-path
            --no-comp-dir-path --no-show-locs --no-elf-needed
            --suppressions "${CMAKE_CURRENT_LIST_DIR}/drop-foreign-types.abignore"
            --out-file "${found}" "${LIBRARY}"
    COMMAND_ERROR_IS_FATAL ANY)

if(NOT ACCEPT)
    execute_process(COMMAND "${abidiff}" "${record}" "${found}"
        RESULT_VARIABLE difference OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT difference EQUAL 0)
        message(FATAL_ERROR "${NAME}'s binary interface differs from ${record}:\n${output}")
    endif()
endif()
