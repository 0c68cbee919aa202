#include "tools/SoapDocument.h"

#include <string_view>
#include <utility>

#include "tools/SoapRewriter.h"

namespace tool {
namespace {

std::string LocalName(ZQXML::INode* element) {
    const std::string name = element->GetName();
    return name.substr(name.rfind(':') + 1);
}

ZQXML::INode* FindLocal(ZQXML::INode* parent, std::string_view name) {
    ZQXML::INodeList* const children = parent->GetChildren();
    ZQXML::INode* child = children->First();
    while (child != nullptr && LocalName(child) != name) {
        child = children->Next();
    }
    return child;
}

/// What a SOAP fault says: SOAP 1.1 has the text in "faultstring", SOAP 1.2 in "Reason/Text".
std::string FaultText(ZQXML::INode* fault) {
    ZQXML::INode* text = FindLocal(fault, "faultstring");
    if (text == nullptr) {
        ZQXML::INode* const reason = FindLocal(fault, "Reason");
        text = reason == nullptr ? nullptr : FindLocal(reason, "Text");
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
    const Result<Tree> root = ParseTree(text, where);
    if (!root) {
        return root.failure();
    }
    ZQXML::INode* record = root->get();
    if (LocalName(record) == "Envelope") {
        ZQXML::INode* const body = FindLocal(record, "Body");
        record = body == nullptr ? nullptr : body->GetChildren()->First();
    }
    if (record == nullptr) {
        return Failure{where, "the SOAP envelope holds no record"};
    }
    SoapDocument document;
    document.recordElement_ = LocalName(record);
    if (document.recordElement_ == "Fault") {
        return Failure{where, FaultText(record)};
    }
    document.text_ = RewriteForGsoap(text);
    document.where_ = where;
    return document;
}

/// Reads up to the record element; the calls for the envelope's parts do nothing where there is
/// no envelope.
bool SoapDocument::EnterRecord(struct soap* soap, std::istream* stream) {
    soap->is = stream;
    const bool isReady = soap_begin_recv(soap) == SOAP_OK &&
                         soap_envelope_begin_in(soap) == SOAP_OK &&
                         soap_recv_header(soap) == SOAP_OK && soap_body_begin_in(soap) == SOAP_OK;
    // A record and its members are known by their names, whatever prefixes a service gives them.
    // Not so ahead of the record: with this mode gSOAP refuses header entries that it is to skip.
    soap->mode |= SOAP_XML_IGNORENS;
    return isReady && soap_peek_element(soap) == SOAP_OK;
}

std::string SoapDocument::Describe(struct soap* soap) {
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
