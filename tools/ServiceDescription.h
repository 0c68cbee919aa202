#ifndef QUAVERA_TOOLS_SERVICE_DESCRIPTION_H_
#define QUAVERA_TOOLS_SERVICE_DESCRIPTION_H_

#include <string_view>

namespace tool {

/// The service's description, a WSDL 1.1 document, which is installed as Quavera.wsdl too; see
/// cmake/ServiceDescription.cmake. In its schemas a record is a complexType named as on the wire
/// ("AlbumMetadata"); a full record's is an extension of its summary's.
extern const std::string_view kServiceDescription;

}  // namespace tool

#endif  // QUAVERA_TOOLS_SERVICE_DESCRIPTION_H_
