#ifndef QUAVERA_TOOLS_SOAP_DOCUMENT_H_
#define QUAVERA_TOOLS_SOAP_DOCUMENT_H_

#include <sstream>
#include <string>

#include "platform/zqshared.h"
#include "tools/Result.h"
#include "tools/SoapContext.h"

namespace tool {

using Tree = zq::auto_com<ZQXML::INode>;

/// The tree of an XML text, which messages call `where`.
Result<Tree> ParseTree(const std::string& xml, const std::string& where);

/// A SOAP response: a whole envelope, or the bare record element.
class SoapDocument {
 public:
    /// Checks the text, which gSOAP does not (it reads on over mismatched tags, unknown entities
    /// and cut documents), and finds the record element. Malformed XML, a SOAP fault and an
    /// envelope that holds no record are failures. `where` names the text in messages.
    static Result<SoapDocument> Open(const std::string& text, const std::string& where);

    /// The record element's name without prefix, "AlbumMetadata" for example.
    const std::string& RecordElement() const { return recordElement_; }

    /// Decodes the record element, which the caller knows to be of this kind, into `record`. What
    /// the record points to lives in `context`. A value that does not fit is a failure.
    template <class Record>
    Result<Done> Decode(SoapContext* context, Record* record) const {
        std::istringstream stream(text_);
        struct soap* const soap = context->get();
        record->soap_default(soap);
        if (!EnterRecord(soap, &stream) || record->soap_get(soap, nullptr, nullptr) == nullptr) {
            return Failure{where_, Describe(soap)};
        }
        return Done();
    }

 private:
    SoapDocument() = default;

    static bool EnterRecord(struct soap* soap, std::istream* stream);
    static std::string Describe(struct soap* soap);

    std::string text_;
    std::string where_;
    std::string recordElement_;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_DOCUMENT_H_
