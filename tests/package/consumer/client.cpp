// Speaks SOAP and uses nothing but the SOAP records.

#include <sstream>
#include <string>

#include "soap/QuaveraH.h"

int main() {
    std::istringstream request("<TrackMetadata><trackId>Tra.1</trackId></TrackMetadata>");
    struct soap context(SOAP_C_UTFSTRING);
    context.is = &request;
    Quavera::Quavera2__LiteTrackMetadata record;
    const bool isRead =
        Quavera::soap_read_Quavera2__LiteTrackMetadata(&context, &record) == SOAP_OK;
    std::ostringstream answer;
    context.os = &answer;
    const bool isWritten =
        Quavera::soap_write_Quavera2__LiteTrackMetadata(&context, &record) == SOAP_OK;
    soap_destroy(&context);
    soap_end(&context);
    const bool hasIdentifier = answer.str().find("<trackId>Tra.1</trackId>") != std::string::npos;
    return isRead && isWritten && hasIdentifier ? 0 : 1;
}
