# Finds the gSOAP toolkit.
#
#   GSOAP::gsoap++   the C++ runtime, with the definitions that it was built with
#   GSOAP::headers   the same without the library, for targets that only name gSOAP's types
#   GSOAP_VERSION    the runtime's version, from its stdsoap2.h
#   GSOAP_SOAPCPP2   the code generator; not required. It runs on the build machine, so it is not
#                    looked for in the target's root path
#   GSOAP_SOAPCPP2_VERSION
#
# Hints: GSOAP_INCLUDE_DIR, GSOAP_LIBRARY, GSOAP_SOAPCPP2, GSOAP_DEFINITIONS.

find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(PC_GSOAP QUIET gsoap++)
endif()

find_path(GSOAP_INCLUDE_DIR stdsoap2.h HINTS ${PC_GSOAP_INCLUDE_DIRS})
find_library(GSOAP_LIBRARY NAMES gsoap++ HINTS ${PC_GSOAP_LIBRARY_DIRS})
find_program(GSOAP_SOAPCPP2 soapcpp2 NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(GSOAP_INCLUDE_DIR GSOAP_LIBRARY GSOAP_SOAPCPP2)

# The runtime's build options change the layout of its context, so its users have to have the same
# ones. Its .pc file knows them; without it, take those that distributions build with.
set(_gsoap_definitions WITH_IPV6 WITH_DOM)
if(PC_GSOAP_FOUND)
    set(_gsoap_definitions ${PC_GSOAP_CFLAGS_OTHER})
    list(FILTER _gsoap_definitions INCLUDE REGEX "^-D")
    list(TRANSFORM _gsoap_definitions REPLACE "^-D" "")
endif()
set(GSOAP_DEFINITIONS "${_gsoap_definitions}"
    CACHE STRING "Preprocessor definitions that the gSOAP runtime was built with")
mark_as_advanced(GSOAP_DEFINITIONS)
unset(_gsoap_definitions)

# GSOAP_VERSION is a number there: 208124 is 2.8.124.
unset(GSOAP_VERSION)
if(GSOAP_INCLUDE_DIR AND EXISTS "${GSOAP_INCLUDE_DIR}/stdsoap2.h")
    file(STRINGS "${GSOAP_INCLUDE_DIR}/stdsoap2.h" _gsoap_line
         REGEX "^#[ \t]*define[ \t]+GSOAP_VERSION[ \t]+[0-9]+" LIMIT_COUNT 1)
    if(_gsoap_line MATCHES "GSOAP_VERSION[ \t]+([0-9]+)")
        math(EXPR _gsoap_major "${CMAKE_MATCH_1} / 100000")
        math(EXPR _gsoap_minor "${CMAKE_MATCH_1} / 1000 % 100")
        math(EXPR _gsoap_patch "${CMAKE_MATCH_1} % 1000")
        set(GSOAP_VERSION "${_gsoap_major}.${_gsoap_minor}.${_gsoap_patch}")
    endif()
    unset(_gsoap_line)
endif()

unset(GSOAP_SOAPCPP2_VERSION)
if(GSOAP_SOAPCPP2)
    execute_process(COMMAND "${GSOAP_SOAPCPP2}" -V
                    OUTPUT_VARIABLE _gsoap_output ERROR_VARIABLE _gsoap_output)
    if(_gsoap_output MATCHES "([0-9]+\\.[0-9]+\\.[0-9]+)")
        set(GSOAP_SOAPCPP2_VERSION "${CMAKE_MATCH_1}")
    endif()
    unset(_gsoap_output)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GSOAP
    REQUIRED_VARS GSOAP_LIBRARY GSOAP_INCLUDE_DIR GSOAP_VERSION
    VERSION_VAR GSOAP_VERSION)

if(GSOAP_FOUND AND NOT TARGET GSOAP::headers)
    add_library(GSOAP::headers INTERFACE IMPORTED)
    set_target_properties(GSOAP::headers PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${GSOAP_INCLUDE_DIR}"
        INTERFACE_COMPILE_DEFINITIONS "${GSOAP_DEFINITIONS}")
endif()

if(GSOAP_FOUND AND NOT TARGET GSOAP::gsoap++)
    add_library(GSOAP::gsoap++ UNKNOWN IMPORTED)
    set_target_properties(GSOAP::gsoap++ PROPERTIES
        IMPORTED_LOCATION "${GSOAP_LIBRARY}"
        INTERFACE_LINK_LIBRARIES GSOAP::headers)
endif()
