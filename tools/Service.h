#ifndef QUAVERA_TOOLS_SERVICE_H_
#define QUAVERA_TOOLS_SERVICE_H_

#include <string>

#include "tools/RecordClasses.h"
#include "tools/Result.h"

namespace tool {

/// Asks a live service for a record of the class, which has a request, and returns the text of its
/// answer, a fault included: it is checked like any document. A service that cannot be reached, or
/// answers with something else than SOAP, is a failure.
Result<std::string> Ask(const RecordClass& record, const std::string& endpoint,
                        const std::string& id);

}  // namespace tool

#endif  // QUAVERA_TOOLS_SERVICE_H_
