#ifndef QUAVERA_TOOLS_SOAP_CONTEXT_H_
#define QUAVERA_TOOLS_SOAP_CONTEXT_H_

#include "soap/QuaveraH.h"

namespace tool {

/// A gSOAP context as every reader and writer of records here uses it: on streams, for one message.
/// All records that are read with it live until it goes.
class SoapContext {
 public:
    SoapContext();
    SoapContext(const SoapContext&) = delete;
    SoapContext& operator=(const SoapContext&) = delete;
    ~SoapContext();

    struct soap* get() {
        return &soap_;
    }

 private:
    struct soap soap_;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_CONTEXT_H_
