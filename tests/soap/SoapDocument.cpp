#include "tests/soap/SoapDocument.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

SoapContext::SoapContext(soap_mode mode) : soap_(soap_new1(mode)) {}

SoapContext::~SoapContext() {
    soap_destroy(soap_);
    soap_end(soap_);
    soap_free(soap_);
}

std::string SoapContext::Fault() const {
    char text[500] = "";
    soap_sprint_fault(soap_, text, sizeof text);
    return text;
}

void DecodeDocument(const SoapContext& context, const std::string& text,
                    const std::function<bool(soap* context)>& decode) {
    soap* const s = context.get();
    std::istringstream in(text);
    s->is = &in;
    const bool hasBegun = soap_begin_recv(s) == SOAP_OK && soap_envelope_begin_in(s) == SOAP_OK &&
                          soap_recv_header(s) == SOAP_OK && soap_body_begin_in(s) == SOAP_OK;
    // Not earlier: gSOAP would then refuse a header's elements instead of skipping them.
    s->mode |= SOAP_XML_IGNORENS;
    const bool isRead = hasBegun && soap_peek_element(s) == SOAP_OK && decode(s) &&
                        soap_body_end_in(s) == SOAP_OK && soap_envelope_end_in(s) == SOAP_OK &&
                        soap_end_recv(s) == SOAP_OK;
    EXPECT_TRUE(isRead) << context.Fault() << "\nin " << text;
    s->is = nullptr;
}

std::string TestData(const std::string& path) {
    std::ifstream in(QUAVERA_TEST_DATA "/" + path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}
