#ifndef QUAVERA_TOOLS_SERVICE_H_
#define QUAVERA_TOOLS_SERVICE_H_

#include <string>

#include "tools/HttpClient.h"
#include "tools/Printing.h"
#include "tools/RecordClasses.h"
#include "tools/Result.h"

namespace tool {

/// A live service.
struct Service {
    std::string endpoint;
    HttpWay way = {};
    int retries = 0;  // after failures that may pass; each is reported
};

/// Asks for a record of the class, which has a request, and returns the text of the answer, a fault
/// included: it is checked like any document. A service that cannot be reached, or answers with
/// something else than success or a fault, is a failure.
Result<std::string> Ask(const Service& service, const RecordClass& record, const std::string& id);

/// The same, printed.
Result<std::string> Fetch(const Service& service, const RecordClass& record, const std::string& id,
                          Form form);

/// Whether an answer is a SOAP fault.
bool IsFault(const std::string& answer);

}  // namespace tool

#endif  // QUAVERA_TOOLS_SERVICE_H_
