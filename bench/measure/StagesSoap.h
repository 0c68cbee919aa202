#ifndef QUAVERA_BENCH_MEASURE_STAGES_SOAP_H_
#define QUAVERA_BENCH_MEASURE_STAGES_SOAP_H_

#include <cstddef>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "bench/shared/Album.h"
#include "soap/QuaveraH.h"

// A client's side of SOAP, from memory: what a service answers, and how gSOAP reads it.

namespace bench {

/// Where gSOAP has the bytes from: a function of the program, whole or in the pieces in which a
/// network brings them, or a stream that holds a copy.
enum class SoapSource { kMemory, kPackets, kStream };

/// Whether a context serves for all answers, is set back for each, or is made for each.
enum class SoapContext { kKept, kSetBack, kMadeAnew };

/// What a client may choose.
struct SoapOptions {
    const char* name;
    soap_mode mode;
    SoapSource source = SoapSource::kMemory;
    SoapContext context = SoapContext::kKept;
    const Namespace* namespaces = nullptr;  // null: the library's
};

/// The options that are compared, those that are recommended first.
const std::vector<SoapOptions>& SoapOptionsCompared();

/// The options of that name; null for an unknown one.
const SoapOptions* FindSoapOptions(std::string_view name);

/// What the service answers when it is asked for the album.
std::string SoapAnswer(SoapAlbum* album);

/// Reads answers, one at a time.
class SoapReader {
 public:
    explicit SoapReader(const SoapOptions& options);
    SoapReader(const SoapReader&) = delete;
    SoapReader& operator=(const SoapReader&) = delete;
    ~SoapReader();

    /// The album of an answer, which stays until `Free`. Ends the program where gSOAP fails.
    SoapAlbum* Read(const std::string& answer);
    void Free();

 private:
    struct FreeContext {
        void operator()(soap* context) const { soap_free(context); }
    };

    void Make();
    void SetUp();
    static std::size_t Receive(soap* context, char* to, std::size_t room);

    const SoapOptions& options_;
    std::unique_ptr<soap, FreeContext> context_;
    std::string_view left_;  // of the answer
    std::optional<std::istringstream> stream_;
    std::optional<SoapAlbum> album_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_MEASURE_STAGES_SOAP_H_
