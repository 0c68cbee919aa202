#ifndef QUAVERA_TOOLS_SOAP_CONTEXT_H_
#define QUAVERA_TOOLS_SOAP_CONTEXT_H_

#include <string>

#include "soap/QuaveraH.h"

namespace tool {

/// A gSOAP context as every reader and writer of records here uses it. All records that are read
/// with it live until it goes or is cleared.
class SoapContext {
 public:
    SoapContext();
    SoapContext(const SoapContext&) = delete;
    SoapContext& operator=(const SoapContext&) = delete;
    ~SoapContext();

    struct soap* get() {
        return &soap_;
    }

    /// Frees all records and texts.
    void Clear();

 private:
    struct soap soap_;
};

/// Why the context's last connection, request or answer failed.
std::string DescribeTransportError(struct soap* soap);

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_CONTEXT_H_
