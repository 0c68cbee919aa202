#include "tools/SoapDocument.h"

#include <algorithm>
#include <cstdlib>
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

std::string_view WithoutPrefix(std::string_view name) {
    return name.substr(name.rfind(':') + 1);
}

/// Rewrites a well-formed document so that gSOAP reads it right and in linear time.
///
/// - Of a numeric character reference gSOAP takes no more than seven characters and reads the rest
///   as text: references are resolved.
/// - Asked to know members by name alone, it refuses prefixed elements that it has no member for:
///   within the record, names lose their prefixes.
/// - It keeps a list of all names of attributes, which takes long to search: attributes that mean
///   nothing in SOAP are left out.
class Preparation {
 public:
    explicit Preparation(const std::string& xml) : xml_(xml) { text_.reserve(xml.size()); }

    std::string Run() {
        while (at_ < xml_.size()) {
            if (StartsWith("&#")) {
                const std::size_t start = at_;
                SkipBehind(";");
                text_ += Resolve(xml_.substr(start, at_ - start));
            } else if (StartsWith("<!--") || StartsWith("<?")) {
                SkipBehind(xml_[at_ + 1] == '?' ? "?>" : "-->");
            } else if (StartsWith("<![CDATA[")) {
                const std::size_t start = at_;
                SkipBehind("]]>");
                text_.append(xml_, start, at_ - start);
            } else if (xml_[at_] == '<') {
                CopyTag();
            } else {
                CopyUpTo("&<", at_ + 1);
            }
        }
        return std::move(text_);
    }

 private:
    bool StartsWith(std::string_view start) const {
        return xml_.compare(at_, start.size(), start) == 0;
    }
    void SkipBehind(std::string_view end) { at_ = xml_.find(end, at_) + end.size(); }
    void CopyUpTo(const char* ends, std::size_t from) {
        const std::size_t end = std::min(xml_.find_first_of(ends, from), xml_.size());
        text_.append(xml_, at_, end - at_);
        at_ = end;
    }
    std::string_view Token(const char* ends) {
        const std::size_t start = at_;
        at_ = xml_.find_first_of(ends, at_);
        return std::string_view(xml_).substr(start, at_ - start);
    }

    void CopyTag() {
        const bool isEnd = xml_[at_ + 1] == '/';
        at_ += isEnd ? 2 : 1;
        const std::string_view name = Token(" \t\r\n/>");
        depth_ -= isEnd ? 1 : 0;
        if (depth_ == 0) {
            isEnvelope_ = WithoutPrefix(name) == "Envelope";
        }
        if (depth_ == 1) {
            isBody_ = WithoutPrefix(name) == "Body";
        }
        const bool isRecord = !isEnvelope_ || (isBody_ && depth_ >= 2);
        text_ += isEnd ? "</" : "<";
        text_ += isRecord ? WithoutPrefix(name) : name;
        while (xml_[at_] != '>' && xml_[at_] != '/') {
            CopyAttribute();
        }
        const bool isEmpty = xml_[at_] == '/';
        text_ += isEmpty ? "/>" : ">";
        at_ += isEmpty ? 2 : 1;
        depth_ += isEnd || isEmpty ? 0 : 1;
    }

    /// Copies an attribute that means something, with the blanks around it.
    void CopyAttribute() {
        at_ = xml_.find_first_not_of(" \t\r\n", at_);
        if (xml_[at_] == '>' || xml_[at_] == '/') {
            return;
        }
        const std::size_t start = at_;
        const std::string_view name = Token(" \t\r\n=");
        at_ = xml_.find_first_of("\"'", at_);
        at_ = xml_.find(xml_[at_], at_ + 1) + 1;
        const std::string_view local = WithoutPrefix(name);
        const bool isNamespace = name.substr(0, 5) == "xmlns";
        if (isNamespace || local == "nil" || local == "type" || local == "mustUnderstand") {
            text_ += ' ';
            text_.append(xml_, start, at_ - start);
        }
    }

    const std::string& xml_;
    std::string text_;
    std::size_t at_ = 0;
    int depth_ = 0;
    bool isEnvelope_ = false;
    bool isBody_ = false;
};

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
    text_ = Preparation(text).Run();
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
