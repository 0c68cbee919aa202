#ifndef QUAVERA_SOAP_QUAVERAEXPORT_H
#define QUAVERA_SOAP_QUAVERAEXPORT_H

/// @file
/// Makes the SOAP records, their serializers, the client calls and the namespace table visible in
/// libquavera-soap.so, which hides everything else. The generated headers carry gSOAP's macros at
/// those places, so this header has to come ahead of stdsoap2.h; the generated headers see to it.
/// A program that has defined one of them keeps its own.
///
/// Users get the same values: in a program that is built with hidden visibility, the declarations
/// of the records and of gSOAP's own classes would be taken for definitions of its own.

/// Marks what libquavera-soap exports.
#define QUAVERA_SOAP_API __attribute__((visibility("default")))

#ifndef SOAP_CMAC
/// gSOAP's mark of classes.
#define SOAP_CMAC QUAVERA_SOAP_API
#endif
#ifndef SOAP_FMAC1
/// gSOAP's mark of runtime functions and record factories.
#define SOAP_FMAC1 QUAVERA_SOAP_API
#endif
#ifndef SOAP_FMAC3
/// gSOAP's mark of serializers.
#define SOAP_FMAC3 QUAVERA_SOAP_API
#endif
#ifndef SOAP_FMAC5
/// gSOAP's mark of client calls and server skeletons.
#define SOAP_FMAC5 QUAVERA_SOAP_API
#endif
#ifndef SOAP_NMAC
/// gSOAP's mark of the namespace table.
#define SOAP_NMAC QUAVERA_SOAP_API
#endif

#endif  // QUAVERA_SOAP_QUAVERAEXPORT_H
