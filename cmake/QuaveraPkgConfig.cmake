# The files for pkg-config, each complete by itself: zqshared.pc, quavera.pc and quavera-soap.pc.

# From the file itself, so that a prefix may be chosen at installation, or moved.
file(RELATIVE_PATH quavera_pc_to_prefix
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
foreach(folder IN ITEMS libdir includedir)
    string(TOUPPER "CMAKE_INSTALL_${folder}" setting)
    set(quavera_pc_${folder} "${${setting}}")
    if(NOT IS_ABSOLUTE "${${setting}}")
        set(quavera_pc_${folder} "\${prefix}/${${setting}}")
    endif()
endforeach()

# quavera_pkg_config(<file's name> COMPONENT <component> NAME <name> DESCRIPTION <text> LIBS <flags>
#                    [VARIABLES <lines>] [CFLAGS <flags>] [LIBS_PRIVATE <flags>]
#                    [REQUIRES <package>] [REQUIRES_PRIVATE <package>])
function(quavera_pkg_config file)
    cmake_parse_arguments(PARSE_ARGV 1 pc "" "COMPONENT;NAME;DESCRIPTION;VARIABLES;CFLAGS;LIBS;\
LIBS_PRIVATE;REQUIRES;REQUIRES_PRIVATE" "")
    configure_file("${PROJECT_SOURCE_DIR}/packaging/package.pc.in" ${file}.pc @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${file}.pc"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${pc_COMPONENT})
endfunction()

if(QUAVERA_PLATFORM STREQUAL "external")
    # As variables, so that pkg-config's --define-variable can name another place.
    get_filename_component(folder "${QUAVERA_PLATFORM_LIBRARY}" DIRECTORY)
    get_filename_component(file "${QUAVERA_PLATFORM_LIBRARY}" NAME)
    string(CONCAT variables
        "platform_includedir=${QUAVERA_PLATFORM_INCLUDE_DIR}\n"
        "platform_libdir=${folder}\n"
        "platform_library=${file}\n")
    string(REPLACE " " "\\ " variables "${variables}")
    set(platform
        VARIABLES "${variables}"
        CFLAGS "-I\${platform_includedir}"
        LIBS "-lquavera -L\${platform_libdir} -l:\${platform_library}")
else()
    set(platform
        LIBS "-lquavera"
        REQUIRES "zqshared = ${PROJECT_VERSION}")

    # Whoever links a shared library needs nothing of expat, its .pc file included.
    set(expat LIBS_PRIVATE "-lexpat")
    if(QUAVERA_LIBRARY_TYPE STREQUAL STATIC AND PC_EXPAT_FOUND)
        set(expat REQUIRES_PRIVATE "expat")
    endif()
    quavera_pkg_config(zqshared
        COMPONENT quavera_development
        NAME "zqshared"
        DESCRIPTION "Platform library of Quavera: node trees and their XML text, base64, decimal texts"
        LIBS "-lzqshared"
        ${expat})
endif()
quavera_pkg_config(quavera
    COMPONENT quavera_development
    NAME "Quavera"
    DESCRIPTION "${PROJECT_DESCRIPTION}"
    ${platform})

# gSOAP's runtime takes some functions and the namespace table from the program, and the linker meets
# it behind our library only. So a shared one is kept whatever the program itself calls, and of a
# static one both objects that hold these are asked for.
if(QUAVERA_LIBRARY_TYPE STREQUAL STATIC)
    set(soap_libs "-Wl,-u,namespaces -Wl,-u,soap_getelement -lquavera-soap")
else()
    set(soap_libs "-Wl,--push-state,--no-as-needed -lquavera-soap -Wl,--pop-state")
endif()
if(PC_GSOAP_FOUND AND PC_GSOAP_VERSION VERSION_EQUAL GSOAP_VERSION)
    set(gsoap LIBS "${soap_libs}" REQUIRES "gsoap++ = ${GSOAP_VERSION}")
else()
    list(TRANSFORM GSOAP_DEFINITIONS PREPEND "-D" OUTPUT_VARIABLE definitions)
    list(JOIN definitions " " definitions)
    set(gsoap LIBS "${soap_libs} -lgsoap++" CFLAGS "${definitions}")
endif()
quavera_pkg_config(quavera-soap
    COMPONENT quavera_soap_development
    NAME "Quavera SOAP"
    DESCRIPTION "SOAP records of a music streaming service, with their serializers and client calls"
    ${gsoap})
