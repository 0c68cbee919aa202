#include "tools/SoapDocument.h"

#include <string>
#include <utility>

namespace tool {
namespace {

/// What a SOAP fault says: SOAP 1.1 has the text in "faultstring", SOAP 1.2 in "Reason/Text".
/// A name that is none without its prefix, "a:1", makes it a fault that cannot be read.
std::string FaultText(const Result<Tree>& fault) {
    ZQXML::INode* text = fault ? (*fault)->FindChild("faultstring") : nullptr;
    if (fault && text == nullptr) {
        ZQXML::INode* const reason = (*fault)->FindChild("Reason");
        text = reason == nullptr ? nullptr : reason->FindChild("Text");
    }
    return "the service answered with a fault: " +
           (text == nullptr ? std::string("no reason given") : text->GetValue());
}

}  // namespace

Result<Tree> ParseTree(const std::string& xml, const std::string& where) {
    std::string error;
    Tree tree = ZQXML::ParseXml(xml, &error);
    return tree ? Result<Tree>(std::move(tree)) : Failure{where, error};
}

Result<SoapDocument> SoapDocument::Open(const std::string& text, const std::string& where) {
    Result<SoapMessage> message = ReadSoap(text, where);
    if (!message) {
        return message.failure();
    }
    if (message->recordElement.empty()) {
        return Failure{where, "the SOAP envelope holds no record"};
    }
    if (message->recordElement == "Fault") {
        return Failure{where, FaultText(ParseTree(message->record, where))};
    }
    return SoapDocument(std::move(*message), where);
}

bool SoapDocument::Enter(struct soap* soap, std::istringstream* stream) const {
    stream->str(message_.record);
    soap->is = stream;
    const bool isReady = soap_begin_recv(soap) == SOAP_OK;
    // A record and its members are known by their names, whatever prefixes a service gives them.
    soap->mode |= SOAP_XML_IGNORENS;
    return isReady && soap_peek_element(soap) == SOAP_OK;
}

std::string SoapDocument::Describe(struct soap* soap) {
    // Setting a fault takes memory, which gSOAP takes for granted.
    if (soap->error == SOAP_EOM || soap_faultcode(soap) == nullptr) {
        return "out of memory";
    }
    const std::string element = "element \"" + std::string(soap->tag) + "\": ";
    switch (soap->error) {
        case SOAP_TYPE:
        case SOAP_EMPTY:
            return element + "a value that does not fit its type";
        case SOAP_OCCURS:
            return element + "too many items";
        default:
            soap_set_fault(soap);
            return element + *soap_faultstring(soap);
    }
}

}  // namespace tool
