#ifndef QUAVERA_SOAP_QUAVERAEXPORT_H
#define QUAVERA_SOAP_QUAVERAEXPORT_H

// Makes the SOAP records, their serializers, the client calls and the namespace table visible in
// libquavera-soap.so, which hides everything else. The generated headers carry gSOAP's macros at
// those places, so this header has to come ahead of stdsoap2.h; the generated headers see to it.
//
// Users get the same values: in a program that is built with hidden visibility, the declarations of
// the records and of gSOAP's own classes would be taken for definitions of its own.

#define QUAVERA_SOAP_API __attribute__((visibility("default")))

#ifndef SOAP_CMAC  // classes
#define SOAP_CMAC QUAVERA_SOAP_API
#endif
#ifndef SOAP_FMAC1  // runtime functions, record factories
#define SOAP_FMAC1 QUAVERA_SOAP_API
#endif
#ifndef SOAP_FMAC3  // serializers
#define SOAP_FMAC3 QUAVERA_SOAP_API
#endif
#ifndef SOAP_FMAC5  // client calls, server skeletons
#define SOAP_FMAC5 QUAVERA_SOAP_API
#endif
#ifndef SOAP_NMAC  // the namespace table
#define SOAP_NMAC QUAVERA_SOAP_API
#endif

#endif  // QUAVERA_SOAP_QUAVERAEXPORT_H
