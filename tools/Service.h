#ifndef QUAVERA_TOOLS_SERVICE_H_
#define QUAVERA_TOOLS_SERVICE_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/Files.h"
#include "tools/SoapContext.h"

namespace tool {

/// A request operation of the service, as a user names it.
struct Operation {
    std::string_view record;       // "album"
    std::string_view recordClass;  // of the answer: "DataAlbum"
    int (*send)(struct soap* soap, const char* endpoint, const char* action, const std::string& id);
};

/// All operations of the service.
const std::vector<Operation>& Operations();

/// The operation of that name; null when there is none.
const Operation* FindOperation(std::string_view record);

/// Asks a live service and returns the text of its answer, a fault included: it is checked like
/// any document. False with the endpoint and the reason where the service cannot be reached or
/// answers with something else than SOAP.
bool Ask(const Operation& operation, const std::string& endpoint, const std::string& id,
         std::string* answer, Failure* failure);

}  // namespace tool

#endif  // QUAVERA_TOOLS_SERVICE_H_
