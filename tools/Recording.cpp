#include "tools/Recording.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "tools/Catalog.h"
#include "tools/Files.h"

namespace tool {
namespace {

/// A file that goes with its owner, unless it is moved to its place.
class TemporaryFile {
 public:
    /// In this folder, under a name that no catalogue answers with.
    explicit TemporaryFile(const std::string& folder) : path_(folder + "/.quavera-XXXXXX") {
        const int file = mkostemp(path_.data(), O_CLOEXEC);
        if (file < 0) {
            path_.clear();
            return;
        }
        stream_.reset(fdopen(file, "wb"));
        if (stream_ == nullptr) {
            close(file);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!path_.empty()) {
            unlink(path_.c_str());
        }
    }

    std::FILE* stream() const { return stream_.get(); }

    /// Lets everybody read it whom the process's mask allows to, and moves it, all of it being on
    /// the disk.
    bool MoveTo(const std::string& path) {
        const mode_t mask = umask(0);
        umask(mask);
        const int file = fileno(stream_.get());
        if (fchmod(file, 0666 & ~mask) != 0 || fsync(file) != 0 ||
            std::fclose(stream_.release()) != 0 || std::rename(path_.c_str(), path.c_str()) != 0) {
            return false;
        }
        path_.clear();
        return true;
    }

 private:
    std::string path_;
    Stream stream_;
};

}  // namespace

Result<Done> RecordAnswer(const std::string& folder, std::string_view kind, const std::string& id,
                          const std::string& answer) {
    const std::string place = folder + "/" + std::string(kind);
    const std::string path = place + "/" + *Catalog::FileNameOf(id);
    std::error_code error;
    std::filesystem::create_directories(place, error);
    if (error) {
        return Failure{place, error.message()};
    }
    TemporaryFile file(place);
    if (file.stream() == nullptr) {
        return Failure{place, std::strerror(errno)};
    }
    const Result<Done> written = WriteStream(file.stream(), path, answer);
    if (!written) {
        return written.failure();
    }
    return file.MoveTo(path) ? Result<Done>(Done()) : Failure{path, std::strerror(errno)};
}

}  // namespace tool
