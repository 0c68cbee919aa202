#ifndef QUAVERA_TOOLS_SOAP_DOCUMENT_H_
#define QUAVERA_TOOLS_SOAP_DOCUMENT_H_

#include <sstream>
#include <string>
#include <utility>

#include "platform/zqshared.h"
#include "tools/Result.h"
#include "tools/SoapContext.h"
#include "tools/SoapReader.h"

namespace tool {

using Tree = zq::auto_com<ZQXML::INode>;

/// The tree of an XML text, which messages call `where`.
Result<Tree> ParseTree(const std::string& xml, const std::string& where);

/// A SOAP response: a whole envelope, or the bare record element.
class SoapDocument {
 public:
    /// Checks the text and finds the record element. Malformed XML, a SOAP fault and an envelope
    /// that holds no record are failures. `where` names the text in messages.
    static Result<SoapDocument> Open(const std::string& text, const std::string& where);

    SoapVersion version() const { return message_.version; }

    /// The record element's name without prefix, "AlbumMetadata" for example.
    const std::string& RecordElement() const { return message_.recordElement; }

    /// Lets a context read the record element by way of `stream`, up to its name.
    bool Enter(struct soap* soap, std::istringstream* stream) const;

    /// Decodes the record element, which the caller knows to be of this kind, into `record`. What
    /// the record points to lives in `context`. A value that does not fit is a failure.
    template <class Record>
    Result<Done> Decode(SoapContext* context, Record* record) const {
        std::istringstream stream;
        struct soap* const soap = context->get();
        record->soap_default(soap);
        if (!Enter(soap, &stream) || record->soap_get(soap, nullptr, nullptr) == nullptr) {
            return Failure{where_, Describe(soap)};
        }
        return Done();
    }

 private:
    SoapDocument(SoapMessage message, std::string where)
        : message_(std::move(message)), where_(std::move(where)) {}

    static std::string Describe(struct soap* soap);

    SoapMessage message_;
    std::string where_;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_DOCUMENT_H_
