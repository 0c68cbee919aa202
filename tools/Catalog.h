#ifndef QUAVERA_TOOLS_CATALOG_H_
#define QUAVERA_TOOLS_CATALOG_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/Result.h"

namespace tool {

/// The SOAP responses that the stand-in service answers with: one document for each kind of record
/// ("album") and identifier. An empty identifier stands for the one named "default".
class Catalog {
 public:
    /// The longest document that is read, in bytes.
    static constexpr std::size_t kLongestDocument = std::size_t{64} * 1024 * 1024;

    /// The sample catalogue that is built into the tool.
    Catalog() = default;
    /// A folder with files `KIND/ID.xml`.
    explicit Catalog(std::string folder) : folder_(std::move(folder)) {}

    /// What a document is called beside its kind: the identifier, or "default".
    static std::string NameOf(const std::string& id) { return id.empty() ? "default" : id; }

    /// The file of a document below its kind's folder; nothing where the identifier makes no plain
    /// file name: one that is hidden, leads to another folder or is too long.
    static std::optional<std::string> FileNameOf(const std::string& id);

    /// The text of a document; nothing where there is none. Identifiers that would lead out of the
    /// folder are as unknown as any other. A document that cannot be read is a failure, at
    /// "album/ID".
    Result<std::optional<std::string>> Find(std::string_view kind, const std::string& id) const;

    /// Everything that is wrong with the folder, up to a number: documents that are malformed, of
    /// another record than their folder's, or have values that do not fit; folders and files that
    /// no request leads to. Hidden files do not count.
    std::vector<Failure> Check() const;

 private:
    std::string folder_;  // empty: the samples
};

/// A document of the sample catalogue; see cmake/EmbedCatalog.cmake.
struct SampleDocument {
    std::string_view path;  // "album/ID.xml"
    std::string_view text;
};

extern const SampleDocument kSampleDocuments[];
extern const std::size_t kSampleDocumentCount;

}  // namespace tool

#endif  // QUAVERA_TOOLS_CATALOG_H_
