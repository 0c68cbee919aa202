// gSOAP's table of the namespaces that the service's documents use. The runtime looks it up under
// its global name, so a program that links this library needs no table of its own.

#include "soap/QuaveraExport.h"

// The generated table includes stdsoap2.h itself, which has to follow the line above.
#include "soap/Quavera.nsmap"
