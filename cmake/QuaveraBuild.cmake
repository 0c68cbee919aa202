# How everything of our own is compiled and linked.

include_guard()

# Programs and libraries find each other in the build tree and in an installed prefix alike.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# Shared, unless it is asked for static ones. The variable is a name of everybody's, so it is only
# read here.
set(QUAVERA_LIBRARY_TYPE SHARED)
if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
    set(QUAVERA_LIBRARY_TYPE STATIC)
endif()

add_library(quavera-options INTERFACE)
target_compile_features(quavera-options INTERFACE cxx_std_17)
target_compile_options(quavera-options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-align
    -Wcast-qual -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual
    -Wdouble-promotion -Wundef -Wimplicit-fallthrough
    # A note, for other compilers than the target's: GCC 7 changed how ARM passes some classes.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-psabi>
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op>
    $<$<BOOL:${QUAVERA_WERROR}>:-Werror>)

if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    # Not with 32 bits: a cast from size_t that 64 need changes nothing there.
    target_compile_options(quavera-options INTERFACE -Wuseless-cast)
endif()

if(QUAVERA_SANITIZE)
    # Without vptr: it needs the type information of the SOAP classes, which libquavera.so, for
    # which they are mere declarations, does not link.
    # Of the debugging information, only what a report needs: lines and functions.
    add_compile_options(-fsanitize=${QUAVERA_SANITIZE} -fno-sanitize=vptr -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=${QUAVERA_SANITIZE})
endif()

# What makes a defect that is left harder to use; none of it takes the place of a test. It is for
# optimised builds of what is installed: _FORTIFY_SOURCE needs the optimiser, sanitizers bring checks
# of their own, which do not know its functions, and whoever builds without a build type's flags, as
# packagers do, sets their own.
if(QUAVERA_HARDENING AND NOT QUAVERA_SANITIZE)
    include(CheckCXXCompilerFlag)
    include(CheckCXXSourceCompiles)
    if(QUAVERA_TOOL)
        # Only for a program: what it finds out holds for those of a project around this one, too.
        include(CheckPIESupported)
        check_pie_supported(LANGUAGES CXX)
    endif()

    set(hardening -fstack-protector-strong)
    # Elsewhere, GCC probes the stack in functions that need none, and may leave out ones that do:
    # on 32-bit ARM for 7 % more code. What both rest on is checked below.
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|aarch64|[Aa][Mm][Dd]64)$")
        check_cxx_compiler_flag(-fstack-clash-protection QUAVERA_HAS_STACK_CLASH_PROTECTION)
        if(QUAVERA_HAS_STACK_CLASH_PROTECTION)
            list(APPEND hardening -fstack-clash-protection)
        endif()
    endif()
    check_cxx_compiler_flag(-fcf-protection QUAVERA_HAS_CF_PROTECTION)
    if(QUAVERA_HAS_CF_PROTECTION)
        list(APPEND hardening -fcf-protection)
    endif()

    # Some compilers define it themselves, some environments do by the flags; either may be stricter.
    string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
    set(CMAKE_REQUIRED_FLAGS "${CMAKE_CXX_FLAGS_${build_type}}")
    check_cxx_source_compiles("
        #ifdef _FORTIFY_SOURCE
        #error \"defined already\"
        #endif
        int main() {}" QUAVERA_MAY_FORTIFY)
    unset(CMAKE_REQUIRED_FLAGS)
    if(QUAVERA_MAY_FORTIFY)
        list(APPEND hardening -D_FORTIFY_SOURCE=2)
    endif()
endif()
set(optimised_configs "Release,RelWithDebInfo,MinSizeRel")

# No frame is larger than the page that guards the end of a stack, and none grows with its input, so
# that nothing can step over that page.
set(frame_warnings -Wframe-larger-than=4096 -Wvla)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    list(APPEND frame_warnings -Walloca)
endif()

# quavera_harden(<target>): the target is installed, or a part of something that is.
function(quavera_harden target)
    if(NOT DEFINED hardening)
        return()
    endif()
    target_compile_options(${target} PRIVATE
        "$<$<CONFIG:${optimised_configs}>:${hardening}>")
    target_link_options(${target} PRIVATE
        "$<$<CONFIG:${optimised_configs}>:LINKER:-z,relro,-z,now,-z,noexecstack>")
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# quavera_own_sources(<target>): the target's sources are ours, held to our warnings.
function(quavera_own_sources target)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quavera-options>)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# quavera_for_speed(<target> <source>...): sources of the target in the current folder that a build
# for size compiles for speed all the same.
#
# To be called ahead of target_sources for the others: of an inline function that is not inlined, the
# library gets the one of the first source that has it, and that is to be a fast one.
function(quavera_for_speed target)
    target_sources(${target} PRIVATE ${ARGN})
    set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target} PROPERTIES
        COMPILE_OPTIONS "$<$<CONFIG:MinSizeRel>:-O2>")
endfunction()

# quavera_library(<target>): one of the project's libraries. A shared one exports what its headers
# mark, and finds the others beside itself.
function(quavera_library target)
    add_library(${target} ${QUAVERA_LIBRARY_TYPE})
    add_library(Quavera::${target} ALIAS ${target})
    quavera_own_sources(${target})
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quavera>")
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON  # a static one may become a part of somebody's shared library
        INSTALL_RPATH "$ORIGIN")
    quavera_harden(${target})
    target_compile_options(${target} PRIVATE
        "$<$<CONFIG:${optimised_configs}>:${frame_warnings}>")
    if(QUAVERA_LIBRARY_TYPE STREQUAL SHARED)
        quavera_export_marked(${target})
    endif()
    if(QUAVERA_ABI_CHECK)
        # The record of the interface names sources, wherever they were compiled.
        target_compile_options(${target} PRIVATE -g
            "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=" "-ffile-prefix-map=${PROJECT_BINARY_DIR}/=")
    endif()
endfunction()

# quavera_export_marked(<target>): how a shared library is linked.
function(quavera_export_marked target)
    if(QUAVERA_SANITIZE)
        # A sanitizer's runtime comes with the program.
        target_link_options(${target} PRIVATE LINKER:--as-needed)
        return()
    endif()
    target_link_options(${target} PRIVATE
        LINKER:--no-undefined LINKER:--as-needed
        "LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map")
endfunction()

# quavera_install_library(<target> <export set> <component>): what a program needs to run with the
# library is a part of <component>_runtime, the rest of <component>_development.
function(quavera_install_library target export_set component)
    install(TARGETS ${target}
        EXPORT ${export_set}
        LIBRARY
            DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT ${component}_runtime
            NAMELINK_COMPONENT ${component}_development
        ARCHIVE
            DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT ${component}_development)
endfunction()
