#ifndef QUAVERA_TESTS_SOAP_SOAP_DOCUMENT_H_
#define QUAVERA_TESTS_SOAP_SOAP_DOCUMENT_H_

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "soap/QuaveraStub.h"

/// A gSOAP context, and with it everything that was made in it.
class SoapContext {
 public:
    explicit SoapContext(soap_mode mode = SOAP_C_UTFSTRING) : soap_(soap_new1(mode)) {}
    SoapContext(const SoapContext&) = delete;
    SoapContext& operator=(const SoapContext&) = delete;
    ~SoapContext() {
        soap_destroy(soap_);
        soap_end(soap_);
        soap_free(soap_);
    }

    soap* get() const { return soap_; }
    soap* operator->() const { return soap_; }

    /// What gSOAP says about the last failure.
    std::string Fault() const {
        char text[500] = "";
        soap_sprint_fault(soap_, text, sizeof text);
        return text;
    }

 private:
    soap* soap_;
};

/// A record decoded from a SOAP document: an envelope, or the record's element alone, with any
/// namespace prefixes.
template <class Record>
class SoapDocument {
 public:
    /// `type` is the record's element: "Quavera2:AlbumMetadata".
    SoapDocument(const std::string& text, const char* type)
        : context_(SOAP_C_UTFSTRING | SOAP_XML_TREE) {
        soap* const s = context_.get();
        std::istringstream in(text);
        s->is = &in;
        record_.soap_default(s);
        const bool hasBegun = soap_begin_recv(s) == SOAP_OK &&
                              soap_envelope_begin_in(s) == SOAP_OK &&
                              soap_recv_header(s) == SOAP_OK && soap_body_begin_in(s) == SOAP_OK;
        // Not earlier: gSOAP would then refuse a header's elements instead of skipping them.
        s->mode |= SOAP_XML_IGNORENS;
        const bool isRead = hasBegun && soap_peek_element(s) == SOAP_OK &&
                            record_.soap_get(s, type, nullptr) != nullptr &&
                            soap_body_end_in(s) == SOAP_OK && soap_envelope_end_in(s) == SOAP_OK &&
                            soap_end_recv(s) == SOAP_OK;
        EXPECT_TRUE(isRead) << context_.Fault() << "\nin " << text;
        s->is = nullptr;
    }

    Record& operator*() { return record_; }
    Record* operator->() { return &record_; }

 private:
    SoapContext context_;
    Record record_;
};

/// A file below tests/data.
inline std::string TestData(const std::string& path) {
    std::ifstream in(QUAVERA_TEST_DATA "/" + path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

#endif  // QUAVERA_TESTS_SOAP_SOAP_DOCUMENT_H_
