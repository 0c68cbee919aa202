#include "tools/Catalog.h"

#include "tools/Files.h"

namespace tool {
namespace {

const SampleDocument* FindSample(const std::string& path) {
    for (std::size_t at = 0; at < kSampleDocumentCount; ++at) {
        if (kSampleDocuments[at].path == path) {
            return &kSampleDocuments[at];
        }
    }
    return nullptr;
}

/// Whether an identifier is a plain file name: none that is hidden, or a way to another folder.
bool IsFileName(const std::string& id) {
    return id.front() != '.' && id.find('/') == std::string::npos &&
           id.find('\0') == std::string::npos;
}

}  // namespace

Result<std::string> Catalog::Find(std::string_view kind, const std::string& id) const {
    const std::string name = id.empty() ? "default" : id;
    const std::string path = std::string(kind) + "/" + name + ".xml";
    const Failure unknown = {std::string(kind), "no such identifier: \"" + name + "\""};
    if (!IsFileName(name)) {
        return unknown;
    }
    if (folder_.empty()) {
        const SampleDocument* const sample = FindSample(path);
        return sample == nullptr ? unknown : Result<std::string>(std::string(sample->text));
    }
    Result<std::string> file = ReadFile(folder_ + "/" + path);
    return file ? std::move(file) : unknown;
}

}  // namespace tool
