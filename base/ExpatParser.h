#ifndef QUAVERA_BASE_EXPAT_PARSER_H_
#define QUAVERA_BASE_EXPAT_PARSER_H_

#include <expat.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace quavera {

/// What is read of any XML text: an element may be nested this deep, and a text be this long.
inline constexpr std::size_t kDeepestXml = 10000;
inline constexpr std::size_t kLongestXml = std::size_t{256} * 1024 * 1024;

/// Feeds one XML text to expat and refuses what is read nowhere here: encodings other than UTF-8,
/// XML versions other than 1.x, document type declarations (entities grow, and lead to files),
/// elements that are nested too deep, texts that are too long. expat itself gives each start tag's
/// attributes in linear time.
///
/// A reader derives from it, `class Reader : public ExpatParser<Reader>`, and has
///
///     void Start(const XML_Char* name, const XML_Char** attributes);
///     void End(const XML_Char* name);
///     void Text(std::string_view text);
///
/// which may throw, and may call `Refuse`.
template <class Reader>
class ExpatParser {
 public:
    ExpatParser(const ExpatParser&) = delete;
    ExpatParser& operator=(const ExpatParser&) = delete;

    /// Whether the whole text was read. If not, `Error()` says why. What the reader throws passes
    /// through; so does `std::bad_alloc` when expat runs out of memory.
    bool Parse(std::string_view text) {
        if (text.size() > kLongestXml) {
            error_ = "line 1, column 1: text too long";
        } else if (text.empty()) {
            error_ = "line 1, column 1: the text is empty";
        } else if (LooksLikeUtf16(text)) {
            error_ = "line 1, column 1: encoding other than UTF-8";
        } else {
            Feed(text);
        }
        return error_.empty();
    }

    /// "line 3, column 7: mismatched tag". Lines and columns count from 1, columns in characters.
    const std::string& Error() const { return error_; }

 protected:
    ExpatParser() : parser_(XML_ParserCreate("UTF-8")) {
        if (parser_ == nullptr) {
            throw std::bad_alloc();
        }
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser_.get(), OnText);
        XML_SetXmlDeclHandler(parser_.get(), OnDeclaration);
        XML_SetStartDoctypeDeclHandler(parser_.get(), OnDoctype);
    }
    ~ExpatParser() = default;

    /// A place in the text. Lines and columns count from 1, columns in characters.
    struct Place {
        unsigned long long line;
        unsigned long long column;
    };

    /// Where the parser is: at the beginning of what it has called the reader for.
    Place Here() const {
        return {XML_GetCurrentLineNumber(parser_.get()),
                XML_GetCurrentColumnNumber(parser_.get()) + 1ULL};
    }

    /// Ends the reading, for this reason at this place.
    void Refuse(std::string_view reason) { RefuseAt(Here(), reason); }
    void RefuseAt(const Place& place, std::string_view reason) {
        SetError(place, reason);  // now: the parser goes on a little
        XML_StopParser(parser_.get(), XML_FALSE);
    }

 private:
    struct FreeParser {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    /// Whether expat would take the text for UTF-16, which it does whatever it is told: it begins
    /// with a byte order mark, or with an ASCII character in 16 bits.
    static bool LooksLikeUtf16(std::string_view text) {
        const std::string_view start = text.substr(0, 2);
        return start == "\xFE\xFF" || start == "\xFF\xFE" ||
               start.find('\0') != std::string_view::npos;
    }

    static bool EqualsIgnoringCase(std::string_view text, std::string_view lowerCase) {
        const auto equal = [](char left, char right) {
            return (left >= 'A' && left <= 'Z' ? left - 'A' + 'a' : left) == right;
        };
        return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(), equal);
    }

    /// "1." and digits: every version 1.x is read as XML 1.0.
    static bool IsVersionOne(std::string_view version) {
        return version.size() > 2 && version.substr(0, 2) == "1." &&
               version.find_first_not_of("0123456789", 2) == std::string_view::npos;
    }

    void Feed(std::string_view text) {
        const XML_Status status =
            XML_Parse(parser_.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
        if (failure_ != nullptr) {
            std::rethrow_exception(failure_);
        }
        const XML_Error code =
            status == XML_STATUS_OK ? XML_ERROR_NONE : XML_GetErrorCode(parser_.get());
        if (code == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        if (code != XML_ERROR_NONE && error_.empty()) {
            SetError(Here(), XML_ErrorString(code));
        }
    }

    /// Runs a handler's work. An exception must not pass through expat's frames: it is kept and
    /// the parser stopped. A stopped parser may still deliver the end of an empty element.
    template <class Work>
    static void Guard(void* self, Work work) {
        auto* const parser = static_cast<ExpatParser*>(self);
        if (parser->failure_ != nullptr || !parser->error_.empty()) {
            return;
        }
        try {
            work(*parser);
        } catch (...) {
            parser->failure_ = std::current_exception();
            XML_StopParser(parser->parser_.get(), XML_FALSE);
        }
    }

    Reader& reader() { return static_cast<Reader&>(*this); }

    static void XMLCALL OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
        Guard(self, [=](ExpatParser& parser) {
            if (parser.depth_ == kDeepestXml) {
                parser.Refuse("elements nested too deep");
                return;
            }
            ++parser.depth_;
            parser.reader().Start(name, attributes);
        });
    }
    static void XMLCALL OnEnd(void* self, const XML_Char* name) {
        Guard(self, [=](ExpatParser& parser) {
            --parser.depth_;
            parser.reader().End(name);
        });
    }
    static void XMLCALL OnText(void* self, const XML_Char* text, int size) {
        Guard(self, [=](ExpatParser& parser) {
            parser.reader().Text(std::string_view(text, static_cast<std::size_t>(size)));
        });
    }
    static void XMLCALL OnDeclaration(void* self, const XML_Char* version, const XML_Char* encoding,
                                      int /*standalone*/) {
        Guard(self, [=](ExpatParser& parser) {
            if (!IsVersionOne(version)) {
                parser.Refuse("XML version other than 1.0");
            } else if (encoding != nullptr && !EqualsIgnoringCase(encoding, "utf-8")) {
                parser.Refuse("encoding other than UTF-8");
            }
        });
    }
    static void XMLCALL OnDoctype(void* self, const XML_Char* /*name*/, const XML_Char* /*system*/,
                                  const XML_Char* /*public*/, int /*hasInternalSubset*/) {
        Guard(self, [](ExpatParser& parser) {
            parser.Refuse("document type declarations are not accepted");
        });
    }

    /// With the place ahead of the reason: "line 3, column 7: ". By snprintf, as std::to_string
    /// takes half a kilobyte of code here.
    void SetError(const Place& place, std::string_view reason) {
        std::array<char, 64> text;  // for two numbers of 64 bits
        std::snprintf(text.data(), text.size(), "line %llu, column %llu: ", place.line,
                      place.column);
        error_ = text.data();
        error_ += reason;
    }

    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    std::size_t depth_ = 0;
    std::string error_;
    std::exception_ptr failure_;  // what the reader threw
};

}  // namespace quavera

#endif  // QUAVERA_BASE_EXPAT_PARSER_H_
