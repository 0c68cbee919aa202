#ifndef QUAVERA_TOOLS_SOAP_DOCUMENT_H_
#define QUAVERA_TOOLS_SOAP_DOCUMENT_H_

#include <sstream>
#include <string>

#include "tools/Files.h"
#include "tools/SoapContext.h"

namespace tool {

/// A SOAP response: a whole envelope, or the bare record element.
class SoapDocument {
 public:
    /// Checks the text, which gSOAP does not (it reads on over mismatched tags, unknown entities
    /// and cut documents), and finds the record element. False with a reason for malformed XML, a
    /// SOAP fault, and an envelope that holds no record. `where` names the text in messages.
    bool Open(std::string text, const std::string& where, Failure* failure);

    /// The record element's name without prefix, "AlbumMetadata" for example.
    const std::string& RecordElement() const { return recordElement_; }

    /// Decodes the record element, which the caller knows to be of this kind, into `record`. What
    /// the record points to lives in `context`. False with a reason for values that do not fit.
    template <class Record>
    bool Decode(SoapContext* context, Record* record, Failure* failure) const {
        std::istringstream stream(text_);
        struct soap* const soap = context->get();
        record->soap_default(soap);
        if (EnterRecord(soap, &stream) && record->soap_get(soap, nullptr, nullptr) != nullptr) {
            return true;
        }
        *failure = {where_, Describe(soap)};
        return false;
    }

 private:
    static bool EnterRecord(struct soap* soap, std::istream* stream);
    static std::string Describe(struct soap* soap);

    std::string text_;
    std::string where_;
    std::string recordElement_;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_DOCUMENT_H_
