# Writes a C++ source that holds the documents of the sample catalogue.
#
#   cmake -DFOLDER=<catalogue> -DOUTPUT=<source> -P EmbedCatalog.cmake

file(GLOB documents RELATIVE "${FOLDER}" "${FOLDER}/*/*.xml")
list(SORT documents)

set(entries "")
foreach(document IN LISTS documents)
    file(READ "${FOLDER}/${document}" text)
    string(APPEND entries "    {\"${document}\", R\"xml(${text})xml\"},\n")
endforeach()
list(LENGTH documents count)

file(WRITE "${OUTPUT}" "#include \"tools/Catalog.h\"

namespace tool {

const SampleDocument kSampleDocuments[] = {
${entries}};
const std::size_t kSampleDocumentCount = ${count};

}  // namespace tool
")
