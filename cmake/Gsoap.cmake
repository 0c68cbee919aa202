# Finds gSOAP and provides quavera_soapcpp2(), which runs its code generator as a part of the build.
#
# Generated code works with the runtime of the same version only, so the two are compared here: the
# generator is the build machine's, the runtime the target's.

find_package(GSOAP REQUIRED)

if(NOT GSOAP_SOAPCPP2)
    message(FATAL_ERROR "gSOAP's code generator soapcpp2 was not found. Install it on the build "
                        "machine (Debian: gsoap) or set GSOAP_SOAPCPP2 to its path.")
endif()
if(NOT GSOAP_SOAPCPP2_VERSION VERSION_EQUAL GSOAP_VERSION)
    message(FATAL_ERROR
        "gSOAP's code generator and its runtime differ in version:\n"
        "  soapcpp2  ${GSOAP_SOAPCPP2_VERSION}  (${GSOAP_SOAPCPP2})\n"
        "  runtime   ${GSOAP_VERSION}  (${GSOAP_INCLUDE_DIR}/stdsoap2.h)\n"
        "Install soapcpp2 ${GSOAP_VERSION} on the build machine, or set GSOAP_SOAPCPP2 to its path.")
endif()

# quavera_soapcpp2(<interface file> OUTPUT_DIR <dir> OUTPUTS <file>... OPTIONS <option>...)
#
# Adds the command that makes OUTPUTS, in OUTPUT_DIR, from an interface file of the current source
# directory.
function(quavera_soapcpp2 input)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "OUTPUT_DIR" "OUTPUTS;OPTIONS")
    list(TRANSFORM arg_OUTPUTS PREPEND "${arg_OUTPUT_DIR}/")
    file(MAKE_DIRECTORY "${arg_OUTPUT_DIR}")
    set(log "${CMAKE_CURRENT_BINARY_DIR}/${input}.log")
    # Both paths are written into the generated files, which get installed and tell a debugger where
    # they are from: relative ones, or two builds of the same sources would differ by their places.
    # soapcpp2 has no quiet mode, so its output goes to a log that only a failure shows.
    file(REAL_PATH "${CMAKE_CURRENT_SOURCE_DIR}" source_dir)
    file(REAL_PATH "${arg_OUTPUT_DIR}" output_dir)
    file(RELATIVE_PATH output_dir "${source_dir}" "${output_dir}")
    add_custom_command(
        OUTPUT ${arg_OUTPUTS}
        COMMAND sh -c "\"$@\" > \"$0\" 2>&1 || { cat \"$0\" >&2; exit 1; }" "${log}"
                "${GSOAP_SOAPCPP2}" -c++11 -L -x ${arg_OPTIONS} "-d${output_dir}" ${input}
        DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${input}"
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        COMMENT "Generating SOAP code from ${input}"
        VERBATIM)
endfunction()
