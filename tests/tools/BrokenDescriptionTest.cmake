# A description that cannot be right has to fail the build.
#
#   cmake -DSCRIPT=<ServiceDescription.cmake> -DINTERFACE=<interface file> -DINPUT=<WSDL of soapcpp2>
#         -DFOLDER=<folder for files> -P BrokenDescriptionTest.cmake

file(READ "${INTERFACE}" interface)
file(READ "${INPUT}" wsdl)
file(MAKE_DIRECTORY "${FOLDER}")

# expect_failure(<what> <interface> <wsdl> <message>)
function(expect_failure what changed_interface changed_wsdl message)
    file(WRITE "${FOLDER}/interface.h" "${changed_interface}")
    file(WRITE "${FOLDER}/input.wsdl" "${changed_wsdl}")
    file(REMOVE "${FOLDER}/output.wsdl")
    execute_process(
        COMMAND "${CMAKE_COMMAND}" "-DINTERFACE=${FOLDER}/interface.h"
                "-DINPUT=${FOLDER}/input.wsdl" "-DOUTPUT=${FOLDER}/output.wsdl" -P "${SCRIPT}"
        RESULT_VARIABLE result
        ERROR_VARIABLE errors)
    string(REGEX REPLACE "[ \n]+" " " errors "${errors}")
    if(result EQUAL 0 OR EXISTS "${FOLDER}/output.wsdl" OR NOT errors MATCHES "${message}")
        message(SEND_ERROR "${what}: status ${result}, expected \"${message}\":\n${errors}")
    endif()
endfunction()

set(orphan "class Quavera2__Orphan : public Quavera2__LiteTrackMetadata {\n};\n")
expect_failure("a class without a type" "${interface}${orphan}" "${wsdl}"
    "no complexType for Quavera2__Orphan")
string(REPLACE "public Quavera2__LiteAlbumMetadata" "public Quavera2__LiteOpera" changed
    "${interface}")
expect_failure("a base without a type" "${changed}" "${wsdl}"
    "no complexType for Quavera2__LiteOpera")
string(REPLACE "public Quavera5__LiteMemberLibrary" "public Quavera2__LiteMemberLibrary" changed
    "${interface}")
expect_failure("a base of the other schema" "${changed}" "${wsdl}"
    "no complexType for Quavera2__LiteMemberLibrary")
string(REPLACE ": public Quavera2__LiteAlbumMetadata" ": private Quavera2__LiteAlbumMetadata"
    changed "${interface}")
expect_failure("a base that is not public" "${changed}" "${wsdl}"
    "a class with a base of an unknown form")
string(REPLACE "<SOAP:address" "<SOAP:place" changed "${wsdl}")
expect_failure("no address" "${interface}" "${changed}" "no address of the service")
string(REPLACE "type=\"xsd:int\"" "type=\"SOAP-ENC:int\"" changed "${wsdl}")
expect_failure("a type of SOAP's encoding" "${interface}" "${changed}" "a type of SOAP's encoding")
