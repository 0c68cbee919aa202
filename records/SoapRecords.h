#ifndef QUAVERA_RECORDS_SOAP_RECORDS_H_
#define QUAVERA_RECORDS_SOAP_RECORDS_H_

/// @file
/// The SOAP records by name, for the records' headers; soap/QuaveraStub.h has their members.

/// The SOAP records of the service. gSOAP generates them, except for what their repeated elements
/// are held in (soap/QuaveraWrappers.h).
namespace Quavera {
#define QUAVERA_RECORD(Record, Soap, element, node, answer) class Soap;
#include "records/Records.def"
}  // namespace Quavera

#endif  // QUAVERA_RECORDS_SOAP_RECORDS_H_
