#include "tools/Catalog.h"

namespace tool {
namespace {

bool FindSample(const std::string& path, std::string* document) {
    for (std::size_t at = 0; at < kSampleDocumentCount; ++at) {
        if (kSampleDocuments[at].path == path) {
            *document = kSampleDocuments[at].text;
            return true;
        }
    }
    return false;
}

/// Whether an identifier is a plain file name: none that is hidden, or a way to another folder.
bool IsFileName(const std::string& id) {
    return id.front() != '.' && id.find('/') == std::string::npos &&
           id.find('\0') == std::string::npos;
}

}  // namespace

bool Catalog::Find(std::string_view record, const std::string& id, std::string* document,
                   Failure* failure) const {
    const std::string name = id.empty() ? "default" : id;
    const std::string path = std::string(record) + "/" + name + ".xml";
    Failure unreadable;
    const bool isFound = IsFileName(name) &&
                         (folder_.empty() ? FindSample(path, document)
                                          : ReadFile(folder_ + "/" + path, document, &unreadable));
    if (!isFound) {
        *failure = {std::string(record), "no such identifier: \"" + name + "\""};
    }
    return isFound;
}

}  // namespace tool
