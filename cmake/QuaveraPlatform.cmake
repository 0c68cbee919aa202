# The platform library that libquavera is built on, Quavera::zqshared: the bundled one, or, with
# QUAVERA_PLATFORM=external, the controller's own.
#
# The external one replaces the folder platform/ of the source tree altogether. What only the
# bundled one offers, the tool's XML text above all, cannot be had then: libquavera and
# libquavera-soap are all that is built.

include_guard()

set(QUAVERA_PLATFORM bundled CACHE STRING
    "Platform library: bundled, or external for the controller's own")
set_property(CACHE QUAVERA_PLATFORM PROPERTY STRINGS bundled external)
set(QUAVERA_PLATFORM_INCLUDE_DIR "" CACHE PATH
    "External platform: the folder in which platform/zqshared.h is found")
set(QUAVERA_PLATFORM_LIBRARY "" CACHE FILEPATH
    "External platform: the library's file, shared or static")

if(QUAVERA_PLATFORM STREQUAL "bundled")
    return()
endif()

if(NOT QUAVERA_PLATFORM STREQUAL "external")
    message(FATAL_ERROR
        "QUAVERA_PLATFORM is \"${QUAVERA_PLATFORM}\". It has to be \"bundled\" or \"external\".")
endif()
if(NOT EXISTS "${QUAVERA_PLATFORM_INCLUDE_DIR}/platform/zqshared.h")
    message(FATAL_ERROR
        "There is no platform/zqshared.h in the folder \"${QUAVERA_PLATFORM_INCLUDE_DIR}\". Set "
        "QUAVERA_PLATFORM_INCLUDE_DIR to the include folder of the external platform library.")
endif()
if(NOT EXISTS "${QUAVERA_PLATFORM_LIBRARY}" OR IS_DIRECTORY "${QUAVERA_PLATFORM_LIBRARY}")
    message(FATAL_ERROR
        "There is no library file \"${QUAVERA_PLATFORM_LIBRARY}\". Set QUAVERA_PLATFORM_LIBRARY to "
        "the file of the external platform library, shared or static.")
endif()

foreach(option IN ITEMS BUILD_TESTING QUAVERA_BENCHMARKS)
    if(${option})
        message(STATUS "${option} has no effect: it needs the bundled platform library")
        set(${option} OFF)
    endif()
endforeach()
set(QUAVERA_TOOL OFF)

# A library that is only referred to: so CMake looks into the file, and where that one has no SONAME
# lets the linker search for it, lest this machine's path become its name for the dynamic loader.
# Headers of an imported target count as the system's: their warnings are none of ours.
add_library(Quavera::zqshared INTERFACE IMPORTED GLOBAL)
set_target_properties(Quavera::zqshared PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${QUAVERA_PLATFORM_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES "${QUAVERA_PLATFORM_LIBRARY}")

# The source tree as an include folder, without platform/: no header of the bundled library may
# stand in for one of the external library's, whatever names that one uses.
set(quavera_include_dir "${CMAKE_CURRENT_BINARY_DIR}/external-platform/include")
file(MAKE_DIRECTORY "${quavera_include_dir}")
foreach(folder IN ITEMS base common records soap)
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${folder}" "${quavera_include_dir}/${folder}" SYMBOLIC)
endforeach()

# quavera_hide_bundled_platform(<target>...): the targets, and all that use them, see that folder in
# place of the source tree.
function(quavera_hide_bundled_platform)
    foreach(target IN LISTS ARGN)
        foreach(property IN ITEMS INCLUDE_DIRECTORIES INTERFACE_INCLUDE_DIRECTORIES)
            set(folders "")
            get_target_property(before ${target} ${property})
            foreach(folder IN LISTS before)
                if(folder STREQUAL "${PROJECT_SOURCE_DIR}")
                    set(folder "${quavera_include_dir}")
                elseif(folder STREQUAL "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>")
                    set(folder "$<BUILD_INTERFACE:${quavera_include_dir}>")
                endif()
                list(APPEND folders "${folder}")
            endforeach()
            if(before)
                set_property(TARGET ${target} PROPERTY ${property} "${folders}")
            endif()
        endforeach()
    endforeach()
endfunction()
