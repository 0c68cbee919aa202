# Compares the symbols that a library exports with the recorded list. One list serves all
# architectures: the interface names no type whose mangling differs between them.
#
#   NM, LIBRARY, NAME; with ACCEPT, the list is written anew

cmake_minimum_required(VERSION 3.25)

set(record "${CMAKE_CURRENT_LIST_DIR}/${NAME}.symbols")

execute_process(COMMAND "${NM}" --dynamic --defined-only --format=posix "${LIBRARY}"
    OUTPUT_VARIABLE lines COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${lines}")
list(TRANSFORM lines REPLACE " .*" "")
list(SORT lines)
list(LENGTH lines count)
if(count EQUAL 0)
    message(FATAL_ERROR "${LIBRARY} exports nothing")
endif()

if(ACCEPT)
    list(JOIN lines "\n" text)
    file(WRITE "${record}" "${text}\n")
    return()
endif()

# What only the library itself can use. In a symbol, a name stands after its length.
set(internal_names quavera ChildReader ChildWalk ElementWriter TextLines GenreLiteElements
    TrackElements AddLines LinesOf NewElement Arena ChildList TextBuffer)
foreach(name IN LISTS internal_names)
    string(LENGTH "${name}" length)
    foreach(symbol IN LISTS lines)
        if(symbol MATCHES "[^0-9]${length}${name}")
            message(SEND_ERROR "${NAME} exports ${symbol}, which is internal")
        endif()
    endforeach()
endforeach()

file(STRINGS "${record}" recorded)
set(added ${lines})
list(REMOVE_ITEM added ${recorded})
set(removed ${recorded})
list(REMOVE_ITEM removed ${lines})
foreach(symbol IN LISTS added)
    message(SEND_ERROR "${NAME} exports ${symbol}, which its list does not have")
endforeach()
foreach(symbol IN LISTS removed)
    message(SEND_ERROR "${NAME} no longer exports ${symbol}")
endforeach()
message(STATUS "${NAME}: ${count} symbols")
