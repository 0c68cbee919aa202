// Uses gSOAP's runtime and nothing else.

#include "soap/QuaveraH.h"

int main() {
    struct soap* const context = soap_new();
    const bool hasNamespaces = context != nullptr && context->namespaces != nullptr &&
                               context->namespaces[0].id != nullptr;
    soap_free(context);
    return hasNamespaces ? 0 : 1;
}
