# Holds a library's code below its ceiling. The target's is what the controller has room for; the
# others are there so that a careless template shows wherever the tests run.
#
#   READELF, LIBRARY, NAME, BUILD ("processor-build type")

cmake_minimum_required(VERSION 3.25)

set(ceiling_of_libquavera 262144)
set(ceiling_of_libzqshared 98304)
if(BUILD STREQUAL "armv7l-MinSizeRel")
    set(ceiling_of_libquavera 65536)
    set(ceiling_of_libzqshared 24576)
endif()

execute_process(COMMAND "${READELF}" --sections --wide "${LIBRARY}"
    OUTPUT_VARIABLE sections COMMAND_ERROR_IS_FATAL ANY)
if(NOT sections MATCHES " \\.text +PROGBITS +[0-9a-f]+ +[0-9a-f]+ +([0-9a-f]+)")
    message(FATAL_ERROR "no code in ${LIBRARY}")
endif()
math(EXPR size "0x${CMAKE_MATCH_1}")

message(STATUS "${NAME}, ${BUILD}: ${size} bytes of code, at most ${ceiling_of_${NAME}}")
if(size GREATER ceiling_of_${NAME})
    message(FATAL_ERROR "too large")
endif()
