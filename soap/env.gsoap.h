// The SOAP envelope's own records (header, fault), which the gSOAP runtime expects outside of every
// namespace. soapcpp2 puts everything of the service's description into one namespace, so the
// envelope is generated apart. There is nothing to add to soapcpp2's built-in declarations.

#include "soap/QuaveraExport.h"
