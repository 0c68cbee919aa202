#include "tools/SoapContext.h"

namespace tool {

// UTFSTRING: texts are UTF-8. TREE: no links between elements of a document, which hostile ones
// could use.
SoapContext::SoapContext() : soap_(SOAP_C_UTFSTRING | SOAP_XML_TREE) {}

SoapContext::~SoapContext() {
    soap_destroy(&soap_);
    soap_end(&soap_);
}

}  // namespace tool
