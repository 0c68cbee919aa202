# The reference of what is installed: `cmake --build BUILD --target quavera-reference` writes it to
# reference/html in the build tree, where there is Doxygen. No other target needs it.
#
# It is made of the headers that QuaveraInstall.cmake installs, of their comments alone: nothing has to
# be compiled. A program of this name is looked for, not the package: that one has targets and cache
# entries of everybody's name.

find_program(QUAVERA_DOXYGEN doxygen DOC "Doxygen, for the reference")
mark_as_advanced(QUAVERA_DOXYGEN)
if(NOT QUAVERA_DOXYGEN OR QUAVERA_PLATFORM STREQUAL "external")
    return()  # half of it would tell of a platform library that is not installed
endif()

set(quavera_reference_dir "${PROJECT_BINARY_DIR}/reference")
set(quavera_reference_files
    docs/reference.md
    ${quavera_common_headers}
    ${quavera_platform_headers}
    ${quavera_record_headers}
    records/RecordText.h
    soap/QuaveraExport.h
    soap/QuaveraWrappers.h)
list(TRANSFORM quavera_reference_files PREPEND "${PROJECT_SOURCE_DIR}/" REGEX "^[^/]")
list(JOIN quavera_reference_files "\" \"" quavera_reference_input)
configure_file(docs/Doxyfile.in "${quavera_reference_dir}/Doxyfile" @ONLY)

add_custom_target(quavera-reference
    COMMAND "${CMAKE_COMMAND}"
            "-DDOXYGEN=${QUAVERA_DOXYGEN}"
            "-DDOXYFILE=${quavera_reference_dir}/Doxyfile"
            "-DOUTPUT_DIR=${quavera_reference_dir}"
            -P "${PROJECT_SOURCE_DIR}/cmake/MakeReference.cmake"
    COMMENT "Making the reference"
    VERBATIM)
