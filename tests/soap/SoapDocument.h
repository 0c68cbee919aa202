#ifndef QUAVERA_TESTS_SOAP_SOAP_DOCUMENT_H_
#define QUAVERA_TESTS_SOAP_SOAP_DOCUMENT_H_

#include <functional>
#include <string>

#include "soap/QuaveraStub.h"

/// A gSOAP context, and with it everything that was made in it.
class SoapContext {
 public:
    explicit SoapContext(soap_mode mode = SOAP_C_UTFSTRING);
    SoapContext(const SoapContext&) = delete;
    SoapContext& operator=(const SoapContext&) = delete;
    ~SoapContext();

    soap* get() const { return soap_; }
    soap* operator->() const { return soap_; }

    /// What gSOAP says about the last failure.
    std::string Fault() const;

 private:
    soap* soap_;
};

/// Reads a SOAP document, an envelope or a record's element alone; `decode` reads that element.
void DecodeDocument(const SoapContext& context, const std::string& text,
                    const std::function<bool(soap* context)>& decode);

/// A record decoded from a SOAP document, with any namespace prefixes.
template <class Record>
class SoapDocument {
 public:
    /// `type` is the record's element: "Quavera2:AlbumMetadata".
    SoapDocument(const std::string& text, const char* type)
        : context_(SOAP_C_UTFSTRING | SOAP_XML_TREE) {
        record_.soap_default(context_.get());
        DecodeDocument(context_, text, [this, type](soap* context) {
            return record_.soap_get(context, type, nullptr) != nullptr;
        });
    }

    Record& operator*() { return record_; }
    Record* operator->() { return &record_; }

 private:
    SoapContext context_;
    Record record_;
};

/// A file below tests/data.
std::string TestData(const std::string& path);

#endif  // QUAVERA_TESTS_SOAP_SOAP_DOCUMENT_H_
