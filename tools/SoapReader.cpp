#include "tools/SoapReader.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/ExpatParser.h"
#include "tools/EnvelopeWalk.h"
#include "tools/XmlNames.h"

namespace tool {
namespace {

constexpr std::string_view kSoap11 = "http://schemas.xmlsoap.org/soap/envelope/";
constexpr std::string_view kSoap12 = "http://www.w3.org/2003/05/soap-envelope";

/// The namespace that an element declares for its own name; empty if it declares none.
std::string_view OwnNamespace(std::string_view name, const XML_Char** attributes) {
    const std::size_t colon = name.rfind(':');
    const std::string declaration =
        colon == std::string_view::npos ? "xmlns" : "xmlns:" + std::string(name.substr(0, colon));
    for (; *attributes != nullptr; attributes += 2) {
        if (attributes[0] == declaration) {
            return attributes[1];
        }
    }
    return {};
}

class SoapReader : public quavera::ExpatParser<SoapReader> {
 public:
    /// Of a text that was parsed.
    SoapMessage TakeMessage() { return std::move(message_); }

    void Start(const XML_Char* name, const XML_Char** attributes) {
        const std::string_view local = WithoutPrefix(name);
        switch (walk_.Start(local)) {
            case EnvelopeWalk::Role::kEnvelope:
                OpenEnvelope(name, attributes);
                break;
            case EnvelopeWalk::Role::kHeaderEntry:
                CheckHeaderEntry(local, attributes);
                break;
            case EnvelopeWalk::Role::kRecord:
                message_.recordElement = local;
                WriteStart(local, attributes);
                break;
            case EnvelopeWalk::Role::kWithinRecord:
                WriteStart(local, attributes);
                break;
            case EnvelopeWalk::Role::kOther:
                break;
        }
    }

    void End(const XML_Char* name) {
        if (walk_.End()) {
            WriteEnd(WithoutPrefix(name));
        }
    }

    void Text(std::string_view text) {
        if (walk_.IsInRecord()) {
            FinishStartTag();
            Write(text);
        }
    }

 private:
    void OpenEnvelope(std::string_view name, const XML_Char** attributes) {
        const std::string_view space = OwnNamespace(name, attributes);
        if (space == kSoap12) {
            message_.version = SoapVersion::k12;
        } else if (space != kSoap11 && !space.empty()) {
            Refuse("the envelope is none of SOAP: its namespace is \"" + std::string(space) + "\"");
        }
    }

    /// None is known here.
    void CheckHeaderEntry(std::string_view local, const XML_Char** attributes) {
        if (FindAttribute(attributes, "mustUnderstand", IsTrueValue) != nullptr) {
            Refuse("the header entry \"" + std::string(local) +
                   "\" must be understood, but is not");
        }
    }

    void WriteStart(std::string_view local, const XML_Char** attributes) {
        FinishStartTag();
        Put("<", local);
        if (FindAttribute(attributes, "nil", IsTrueValue) != nullptr) {
            Put(" nil=\"true\"");
        }
        const XML_Char* const type = FindAttribute(attributes, "type");
        if (type != nullptr) {
            Put(" type=\"");
            Write(WithoutPrefix(type));
            Put("\"");
        }
        isStartTagOpen_ = true;
    }

    void FinishStartTag() {
        if (isStartTagOpen_) {
            Put(">");
            isStartTagOpen_ = false;
        }
    }

    void WriteEnd(std::string_view local) {
        if (isStartTagOpen_) {
            Put("/>");
            isStartTagOpen_ = false;
        } else {
            Put("</", local, ">");
        }
    }

    /// Text, or an attribute's value. A carriage return as it stands would be read as a line feed.
    void Write(std::string_view text) {
        while (!text.empty()) {
            const std::size_t plain = std::min(text.find_first_of("<>&\"\r"), text.size());
            Put(text.substr(0, plain));
            text.remove_prefix(plain);
            if (!text.empty()) {
                Put("&#", std::to_string(static_cast<int>(text.front())), ";");
                text.remove_prefix(1);
            }
        }
    }

    template <class... Texts>
    void Put(const Texts&... texts) {
        (message_.record.append(texts), ...);
    }

    SoapMessage message_;
    EnvelopeWalk walk_;
    bool isStartTagOpen_ = false;  // its ">" or "/>" is still to be written
};

}  // namespace

Result<SoapMessage> ReadSoap(const std::string& text, const std::string& where) {
    SoapReader reader;
    return reader.Parse(text) ? Result<SoapMessage>(reader.TakeMessage())
                              : Failure{where, reader.Error()};
}

}  // namespace tool
