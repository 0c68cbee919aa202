#include "tools/SoapDocument.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/zqshared.h"

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

std::string Utf8(unsigned long code) {
    const auto tail = [code](unsigned shift) {
        return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code < 0x800) {
        return {static_cast<char>(0xC0U | (code >> 6U)), tail(0)};
    }
    if (code < 0x10000) {
        return {static_cast<char>(0xE0U | (code >> 12U)), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0U | (code >> 18U)), tail(12), tail(6), tail(0)};
}

/// A numeric character reference, "&#x1F600;", as the character; one of ASCII in its shortest form.
std::string Resolve(const std::string& reference) {
    constexpr int kHexadecimal = 16;
    constexpr int kDecimal = 10;
    const bool isHexadecimal = reference[2] == 'x';
    const unsigned long code = std::strtoul(reference.c_str() + (isHexadecimal ? 3 : 2), nullptr,
                                            isHexadecimal ? kHexadecimal : kDecimal);
    return code < 0x80 ? "&#" + std::to_string(code) + ";" : Utf8(code);
}

/// The end of the tag that begins at `at`; counts its attributes.
std::size_t EndOfTag(const std::string& xml, std::size_t at, std::size_t* attributes) {
    char quote = '\0';
    for (; quote != '\0' || xml[at] != '>'; ++at) {
        if (quote != '\0') {
            quote = xml[at] == quote ? '\0' : quote;
        } else if (xml[at] == '"' || xml[at] == '\'') {
            quote = xml[at];
            ++*attributes;
        }
    }
    return at + 1;
}

/// Makes up for what gSOAP does not do well. Of a numeric character reference it takes no more than
/// seven characters and reads the rest as text: in the copy they are resolved. Attributes cost it
/// time by the square of their number: false where an element has too many. `xml` is well-formed.
bool PrepareForGsoap(const std::string& xml, std::string* prepared) {
    constexpr std::size_t kMostAttributes = 1000;
    struct Piece {
        std::string_view begin;
        std::string_view end;
    };
    constexpr Piece kUntouched[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    const auto startsWith = [&xml](std::size_t at, std::string_view start) {
        return xml.compare(at, start.size(), start) == 0;
    };
    for (std::size_t at = 0; at < xml.size();) {
        if (startsWith(at, "&#")) {
            const std::size_t end = xml.find(';', at) + 1;
            *prepared += Resolve(xml.substr(at, end - at));
            at = end;
            continue;
        }
        const auto* const piece =
            std::find_if(std::begin(kUntouched), std::end(kUntouched),
                         [&](const Piece& candidate) { return startsWith(at, candidate.begin); });
        std::size_t end = 0;
        std::size_t attributes = 0;
        if (piece != std::end(kUntouched)) {
            end = xml.find(piece->end, at) + piece->end.size();
        } else if (xml[at] == '<') {
            end = EndOfTag(xml, at, &attributes);
        } else {
            end = std::min(xml.find_first_of("&<", at + 1), xml.size());
        }
        if (attributes > kMostAttributes) {
            return false;
        }
        prepared->append(xml, at, end - at);
        at = end;
    }
    return true;
}

}  // namespace

bool SoapDocument::Open(std::string text, const std::string& where, Failure* failure) {
    std::string error;
    const auto root = ZQXML::ParseXml(text, &error);
    if (!root) {
        *failure = {where, error};
        return false;
    }
    ZQXML::INode* record = root.get();
    if (LocalName(record) == "Envelope") {
        ZQXML::INode* const body = FindLocal(record, "Body");
        record = body == nullptr ? nullptr : body->GetChildren()->First();
    }
    if (record == nullptr) {
        *failure = {where, "the SOAP envelope holds no record"};
        return false;
    }
    recordElement_ = LocalName(record);
    if (recordElement_ == "Fault") {
        *failure = {where, FaultText(record)};
        return false;
    }
    text_.clear();
    if (!PrepareForGsoap(text, &text_)) {
        *failure = {where, "an element has too many attributes"};
        return false;
    }
    where_ = where;
    return true;
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
