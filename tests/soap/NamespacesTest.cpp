// A program that has no table of XML namespaces of its own and calls nothing but gSOAP's runtime:
// the table comes with the records' library.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "soap/QuaveraStub.h"

namespace {

TEST(Namespaces, TableComesWithTheLibrary) {
    soap* const context = soap_new();
    std::map<std::string, std::string> table;
    for (const Namespace* entry = context->namespaces; entry->id != nullptr; ++entry) {
        table[entry->id] = entry->ns;
    }
    soap_free(context);
    EXPECT_EQ(table["Quavera2"], "urn:quavera:v2");
    EXPECT_EQ(table["Quavera5"], "urn:quavera:v5");
    EXPECT_EQ(table["SOAP-ENV"], "http://schemas.xmlsoap.org/soap/envelope/");
    EXPECT_EQ(table["xsi"], "http://www.w3.org/2001/XMLSchema-instance");
}

}  // namespace
