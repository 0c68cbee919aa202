#include "tools/Catalog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tools/Files.h"

namespace tool {
namespace {

constexpr char kEnding[] = ".xml";

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

/// Opens a document, without waiting for whoever would write to a pipe of that name. Null where it
/// cannot be opened; then `errno` tells why.
Stream OpenDocument(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    Stream stream(descriptor < 0 ? nullptr : fdopen(descriptor, "rb"));
    if (descriptor >= 0 && stream == nullptr) {
        const int reason = errno;
        close(descriptor);
        errno = reason;
    }
    return stream;
}

/// The text of a document; nothing where there is no such file. Messages call it `where`.
Result<std::optional<std::string>> ReadDocument(const std::string& path, const std::string& where) {
    const Stream file = OpenDocument(path);
    if (file == nullptr) {
        const bool isMissing = errno == ENOENT || errno == ENAMETOOLONG;
        return isMissing ? Result<std::optional<std::string>>(std::nullopt)
                         : Failure{where, std::strerror(errno)};
    }
    struct stat status {};
    if (fstat(fileno(file.get()), &status) != 0) {
        return Failure{where, std::strerror(errno)};
    }
    if (!S_ISREG(status.st_mode)) {
        return Failure{where, S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "not a file"};
    }
    if (static_cast<unsigned long long>(status.st_size) > Catalog::kLongestDocument) {
        return Failure{where,
                       "longer than " + std::to_string(Catalog::kLongestDocument) + " bytes"};
    }
    Result<std::string> text = ReadStream(file.get(), where);
    return text ? Result<std::optional<std::string>>(std::move(*text)) : text.failure();
}

}  // namespace

Result<std::optional<std::string>> Catalog::Find(std::string_view kind,
                                                 const std::string& id) const {
    const std::string name = NameOf(id);
    const std::string where = std::string(kind) + "/" + name;
    if (!IsFileName(name)) {
        return std::optional<std::string>();
    }
    if (!folder_.empty()) {
        return ReadDocument(folder_ + "/" + where + kEnding, where);
    }
    const SampleDocument* const sample = FindSample(where + kEnding);
    return sample == nullptr ? std::optional<std::string>() : std::string(sample->text);
}

}  // namespace tool
