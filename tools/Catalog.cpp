#include "tools/Catalog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "tools/Files.h"
#include "tools/RecordClasses.h"
#include "tools/SoapDocument.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr char kEnding[] = ".xml";
constexpr std::size_t kMostFindings = 20;

const SampleDocument* FindSample(const std::string& path) {
    for (std::size_t at = 0; at < kSampleDocumentCount; ++at) {
        if (kSampleDocuments[at].path == path) {
            return &kSampleDocuments[at];
        }
    }
    return nullptr;
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

/// Takes what is wrong with a catalogue, up to a number of findings.
class Findings {
 public:
    void Add(const Failure& failure) {
        if (!IsFull()) {
            found_.push_back(failure);
        }
    }
    bool IsFull() const { return found_.size() == kMostFindings; }
    std::vector<Failure> Take() { return std::move(found_); }

 private:
    std::vector<Failure> found_;
};

/// Calls `check` for each entry of a folder that is not hidden, in the order of their names, until
/// there are enough findings.
template <class Check>
void ForEachEntry(const fs::path& folder, Findings* findings, Check check) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (at->path().filename().native().front() != '.') {
            entries.push_back(at->path());
        }
    }
    if (error) {
        findings->Add({folder.string(), std::strerror(error.value())});
    }
    std::sort(entries.begin(), entries.end());
    for (const fs::path& entry : entries) {
        if (findings->IsFull()) {
            return;
        }
        check(entry);
    }
}

/// What is wrong with a document that answers requests of a class.
Result<Done> CheckDocument(const fs::path& path, const RecordClass& answered) {
    const std::string where = path.string();
    if (path.extension() != kEnding) {
        return Failure{where, "not named ID.xml"};
    }
    const Result<std::optional<std::string>> text = ReadDocument(where, where);
    if (!text) {
        return text.failure();
    }
    if (!*text) {
        return Failure{where, std::strerror(ENOENT)};  // a link to nowhere
    }
    const Result<SoapDocument> document = SoapDocument::Open(**text, where);
    if (!document) {
        return document.failure();
    }
    if (document->RecordElement() != answered.answerElement) {
        return Failure{where, "the record is \"" + document->RecordElement() +
                                  "\", but the folder is for \"" +
                                  std::string(answered.answerElement) + "\""};
    }
    const Result<Trees> trees = answered.answerToTrees(*document);
    return trees ? Result<Done>(Done()) : trees.failure();
}

void CheckKind(const fs::path& folder, Findings* findings) {
    std::error_code ignored;
    const RecordClass* const answered = FindClass(&RecordClass::kind, folder.filename().string());
    if (answered == nullptr) {
        findings->Add({folder.string(), "no kind of record is called so"});
    } else if (!fs::is_directory(folder, ignored)) {
        findings->Add({folder.string(), std::strerror(ENOTDIR)});
    } else {
        ForEachEntry(folder, findings, [findings, answered](const fs::path& document) {
            const Result<Done> checked = CheckDocument(document, *answered);
            if (!checked) {
                findings->Add(checked.failure());
            }
        });
    }
}

}  // namespace

std::optional<std::string> Catalog::FileNameOf(const std::string& id) {
    constexpr std::size_t kLongestFileName = 255;
    const std::string name = NameOf(id) + kEnding;
    const bool isPlain = name.front() != '.' && name.find('/') == std::string::npos &&
                         name.find('\0') == std::string::npos && name.size() <= kLongestFileName;
    return isPlain ? std::optional<std::string>(name) : std::nullopt;
}

Result<std::optional<std::string>> Catalog::Find(std::string_view kind,
                                                 const std::string& id) const {
    const std::string name = NameOf(id);
    const std::string where = std::string(kind) + "/" + name;
    const std::optional<std::string> file = FileNameOf(id);
    if (!file) {
        return std::optional<std::string>();
    }
    if (!folder_.empty()) {
        return ReadDocument(folder_ + "/" + std::string(kind) + "/" + *file, where);
    }
    const SampleDocument* const sample = FindSample(where + kEnding);
    return sample == nullptr ? std::optional<std::string>() : std::string(sample->text);
}

std::vector<Failure> Catalog::Check() const {
    Findings findings;
    if (!folder_.empty()) {
        ForEachEntry(folder_, &findings,
                     [&findings](const fs::path& kind) { CheckKind(kind, &findings); });
    }
    std::vector<Failure> found = findings.Take();
    if (found.size() == kMostFindings) {
        found.push_back({folder_, "not looked at any further"});
    }
    return found;
}

}  // namespace tool
