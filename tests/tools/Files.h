#ifndef QUAVERA_TESTS_TOOLS_FILES_H_
#define QUAVERA_TESTS_TOOLS_FILES_H_

#include <string>
#include <vector>

namespace tooltest {

/// A file's bytes. A missing file fails the test.
std::string Contents(const std::string& path);

/// The path of a file below tests/data.
std::string DataPath(const std::string& name);

/// The paths of the documents of the sample catalogue.
std::vector<std::string> SampleDocuments();

/// A folder of its own, which goes with its owner.
class TempFolder {
 public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    const std::string& path() const { return path_; }

    /// Writes a file, and the folders on the way to it, and returns its path.
    std::string Add(const std::string& name, const std::string& contents) const;

 private:
    std::string path_;
};

/// `inner` in a SOAP 1.1 envelope, on one line.
std::string Envelope(const std::string& inner);

/// A track's SOAP record element around `members`.
std::string Track(const std::string& members);

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_FILES_H_
