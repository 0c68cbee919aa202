# Writes a C++ source that holds the service's description.
#
#   cmake -DINPUT=<WSDL> -DOUTPUT=<source> -P EmbedDescription.cmake

file(READ "${INPUT}" text)
file(WRITE "${OUTPUT}" "#include \"tools/ServiceDescription.h\"

namespace tool {

const std::string_view kServiceDescription = R\"xml(${text})xml\";

}  // namespace tool
")
