#include <expat.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/DirectXml.h"
#include "platform/Node.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlText.h"

namespace ZQXML {
namespace {

bool EqualsIgnoringCase(std::string_view text, std::string_view lowerCase) {
    const auto equal = [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? left - 'A' + 'a' : left) == right;
    };
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(), equal);
}

/// "1." and digits: every version 1.x is read as XML 1.0.
bool IsVersionOne(std::string_view version) {
    return version.size() > 2 && version.substr(0, 2) == "1." &&
           version.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

/// Feeds one text to expat and builds the tree in a single arena.
class Reader {
 public:
    Reader() : parser_(XML_ParserCreate("UTF-8")) {
        if (parser_ == nullptr) {
            throw std::bad_alloc();
        }
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser_.get(), OnText);
        XML_SetXmlDeclHandler(parser_.get(), OnDeclaration);
        XML_SetStartDoctypeDeclHandler(parser_.get(), OnDoctype);
    }

    zq::auto_com<INode> Read(std::string_view text, std::string* error) {
        const XML_Status status =
            XML_Parse(parser_.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
        if (failure_ != nullptr) {
            std::rethrow_exception(failure_);
        }
        if (status == XML_STATUS_OK) {
            return std::move(root_);
        }
        const XML_Error code = XML_GetErrorCode(parser_.get());
        if (code == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        if (error != nullptr) {
            *error = refusal_.empty() ? Place() + XML_ErrorString(code) : refusal_;
        }
        return nullptr;
    }

 private:
    struct FreeParser {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    /// Runs a handler's work. An exception must not pass through expat's frames: it is kept and
    /// the parser stopped. A stopped parser may still deliver the end of an empty element.
    template <class Work>
    static void Guard(void* self, Work work) {
        auto* const reader = static_cast<Reader*>(self);
        if (reader->failure_ != nullptr || !reader->refusal_.empty()) {
            return;
        }
        try {
            work(*reader);
        } catch (...) {
            reader->failure_ = std::current_exception();
            XML_StopParser(reader->parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
        Guard(self, [=](Reader& reader) { reader.Start(name, attributes); });
    }
    static void XMLCALL OnEnd(void* self, const XML_Char* /*name*/) {
        Guard(self, [](Reader& reader) { reader.End(); });
    }
    static void XMLCALL OnText(void* self, const XML_Char* text, int size) {
        Guard(self, [=](Reader& reader) {
            reader.Text(std::string_view(text, static_cast<std::size_t>(size)));
        });
    }
    static void XMLCALL OnDeclaration(void* self, const XML_Char* version, const XML_Char* encoding,
                                      int /*standalone*/) {
        Guard(self, [=](Reader& reader) {
            if (!IsVersionOne(version)) {
                reader.Refuse("XML version other than 1.0");
            } else if (encoding != nullptr && !EqualsIgnoringCase(encoding, "utf-8")) {
                reader.Refuse("encoding other than UTF-8");
            }
        });
    }
    static void XMLCALL OnDoctype(void* self, const XML_Char* /*name*/, const XML_Char* /*system*/,
                                  const XML_Char* /*public*/, int /*hasInternalSubset*/) {
        Guard(self,
              [](Reader& reader) { reader.Refuse("document type declarations are not accepted"); });
    }

    void Start(const XML_Char* name, const XML_Char** attributes) {
        if (open_.size() == kMaxXmlDepth) {
            Refuse("elements nested too deep");
            return;
        }
        if (open_.empty()) {
            root_ = CreateXmlNode();
            open_.push_back(static_cast<Node*>(root_.get()));
            open_.back()->SetNameAndText(name, {});
        } else {
            FinishText(true);
            open_.push_back(open_.back()->AddElement(name, {}));
        }
        open_.back()->MarkEncoded(HasMark(attributes));
        takesText_ = true;
        text_.clear();
    }

    void End() {
        FinishText(false);
        open_.pop_back();
    }

    void Text(std::string_view text) {
        if (takesText_) {
            text_ += text;
        }
    }

    /// The open element's text ends, with its first child or its end tag.
    void FinishText(bool atChild) {
        if (!takesText_) {
            return;
        }
        takesText_ = false;
        if (!atChild || text_.find_first_not_of(kXmlWhiteSpace) != std::string::npos) {
            open_.back()->SetText(text_);
        }
    }

    static bool HasMark(const XML_Char** attributes) {
        for (; *attributes != nullptr; attributes += 2) {
            if (std::strcmp(attributes[0], "encoding") == 0) {
                return std::strcmp(attributes[1], "base64") == 0;
            }
        }
        return false;
    }

    void Refuse(const char* reason) {
        refusal_ = Place() + reason;  // here and now: the parser goes on a little
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    std::string Place() const {
        return "line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ", column " +
               std::to_string(XML_GetCurrentColumnNumber(parser_.get()) + 1) + ": ";
    }

    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    zq::auto_com<INode> root_;
    std::vector<Node*> open_;  // the elements whose end tag is still to come
    std::string text_;         // of the innermost one, as far as it is read
    bool takesText_ = false;   // it has no child yet
    std::string refusal_;      // why we stopped the parser, with the place
    std::exception_ptr failure_;
};

/// Whether expat would take the text for UTF-16, which it does whatever it is told: it begins with
/// a byte order mark, or with an ASCII character in 16 bits.
bool LooksLikeUtf16(std::string_view text) {
    const std::string_view start = text.substr(0, 2);
    return start == "\xFE\xFF" || start == "\xFF\xFE" || start.find('\0') != std::string_view::npos;
}

}  // namespace

zq::auto_com<INode> ParseXml(std::string_view text, std::string* error) {
    const char* refusal = nullptr;
    if (text.size() > kMaxXmlSize) {
        refusal = "line 1, column 1: text too long";
    } else if (LooksLikeUtf16(text)) {
        refusal = "line 1, column 1: encoding other than UTF-8";
    }
    if (refusal != nullptr) {
        if (error != nullptr) {
            *error = refusal;
        }
        return nullptr;
    }
    zq::auto_com<INode> root = ReadXmlDirectly(text);
    return root ? std::move(root) : Reader().Read(text, error);
}

}  // namespace ZQXML
