# Writes the service's description for clients of other makers, a WSDL document, from the one that
# soapcpp2 writes. That one lacks that records extend others: a record that answers a request has
# its own members in it, and none of its base's.
#
#   cmake -DINTERFACE=<interface file> -DINPUT=<WSDL of soapcpp2> -DOUTPUT=<WSDL>
#         -P ServiceDescription.cmake

# Where `quavera serve` listens unless it is told otherwise; it puts its own address there.
set(address "http://127.0.0.1:8080")

file(READ "${INTERFACE}" interface)
file(READ "${INPUT}" description)

# replace_once(<text> <new text>): in the description, where the text has to stand.
macro(replace_once text replacement)
    string(FIND "${description}" "${text}" first)
    string(FIND "${description}" "${text}" last REVERSE)
    if(first EQUAL -1 OR NOT first EQUAL last)
        message(FATAL_ERROR "${INPUT}: \"${text}\" does not stand there once")
    endif()
    string(REPLACE "${text}" "${replacement}" description "${description}")
endmacro()

# namespace_of(<prefix> <variable>)
function(namespace_of prefix variable)
    if(NOT interface MATCHES "//gsoap ${prefix} schema namespace: ([^ \n]+)")
        message(FATAL_ERROR "${INTERFACE}: no namespace of ${prefix}")
    endif()
    set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

# find_record(<prefix> <name> <variable>): a record's type, from its start tag to its end tag.
function(find_record prefix name variable)
    namespace_of(${prefix} namespace)
    string(FIND "${description}" "<schema targetNamespace=\"${namespace}\"" begin)
    set(schema "")
    if(NOT begin EQUAL -1)
        string(SUBSTRING "${description}" ${begin} -1 schema)
        string(FIND "${schema}" "</schema>" end)
        string(SUBSTRING "${schema}" 0 ${end} schema)
    endif()
    string(FIND "${schema}" "<complexType name=\"${name}\">" begin)
    if(begin EQUAL -1)
        message(FATAL_ERROR "${INPUT}: no complexType for ${prefix}__${name}")
    endif()
    string(SUBSTRING "${schema}" ${begin} -1 type)
    string(FIND "${type}" "</complexType>" end)
    string(SUBSTRING "${type}" 0 ${end} type)
    set(${variable} "${type}</complexType>" PARENT_SCOPE)
endfunction()

# What it says about itself are the names of functions and its generator's version.
string(REGEX REPLACE "<!--[^>]*-->" "" description "${description}")
string(REGEX REPLACE "<documentation>[^<]*</documentation>" "" description "${description}")
if(description MATCHES "<!--|<documentation>")
    message(FATAL_ERROR "${INPUT}: a comment of an unknown form")
endif()

set(identifier "([A-Za-z0-9]+)__([A-Za-z0-9_]+)")
set(derivation "class +${identifier}[ \n]*:[ \n]*public +${identifier}")
string(REGEX MATCHALL "${derivation}" classes "${interface}")
string(REGEX MATCHALL "class +${identifier}[ \n]*:[^:]" all_derived "${interface}")
list(LENGTH classes count)
list(LENGTH all_derived all_count)
if(NOT count EQUAL all_count)
    message(FATAL_ERROR "${INTERFACE}: a class with a base of an unknown form")
endif()
foreach(class IN LISTS classes)
    string(REGEX MATCH "${derivation}" class "${class}")
    set(prefix ${CMAKE_MATCH_1})
    set(name ${CMAKE_MATCH_2})
    set(base_prefix ${CMAKE_MATCH_3})
    set(base ${CMAKE_MATCH_4})
    find_record(${base_prefix} ${base} base_type)
    find_record(${prefix} ${name} type)
    set(extension "<extension base=\"${base_prefix}:${base}\">")
    # Of records that answer no request it does tell the base.
    if(NOT type MATCHES "${extension}")
        if(type MATCHES "<complexContent>" OR NOT type MATCHES "<sequence>.*</sequence>")
            message(FATAL_ERROR "${INPUT}: ${prefix}__${name} is of an unknown form")
        endif()
        set(sequence "${CMAKE_MATCH_0}")
        string(REPLACE "${sequence}"
            "<complexContent>\n${extension}\n${sequence}\n</extension>\n</complexContent>"
            extended "${type}")
        replace_once("${type}" "${extended}")
    endif()
endforeach()

# Nothing here is of that schema, which clients would look for.
string(REGEX REPLACE "<import namespace=\"http://schemas.xmlsoap.org/soap/encoding/\"/>" ""
    description "${description}")
if(description MATCHES "\"SOAP-ENC:")
    message(FATAL_ERROR "${INPUT}: a type of SOAP's encoding")
endif()

if(NOT description MATCHES "<SOAP:address location=\"[^\"]*\"/>")
    message(FATAL_ERROR "${INPUT}: no address of the service")
endif()
replace_once("${CMAKE_MATCH_0}" "<SOAP:address location=\"${address}\"/>")

# One element a line, by its depth; attributes on lines of their own stay below their element.
string(STRIP "${description}" description)
string(REGEX REPLACE "[ \n]*\n[ \n]*" ";" lines "${description}")
set(written "")
set(depth 0)
foreach(line IN LISTS lines)
    if(line MATCHES "^</")
        math(EXPR depth "${depth} - 1")
    endif()
    string(REPEAT "  " ${depth} indent)
    if(NOT line MATCHES "^<")
        string(PREPEND indent "  ")
    endif()
    string(APPEND written "${indent}${line}\n")
    if(line MATCHES ">$" AND NOT line MATCHES "^</|/>$|\\?>$|</[^>]*>$")
        math(EXPR depth "${depth} + 1")
    endif()
endforeach()
if(NOT depth EQUAL 0)
    message(FATAL_ERROR "${INPUT}: elements that do not stand on lines of their own")
endif()
file(WRITE "${OUTPUT}" "${written}")
