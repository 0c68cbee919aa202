#include "tools/SoapRewriter.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "base/Utf8.h"

namespace tool {
namespace {

/// A numeric character reference, "&#x1F600;", as the character; one of ASCII in its shortest form.
std::string Resolve(std::string_view reference) {
    constexpr int kHexadecimal = 16;
    constexpr int kDecimal = 10;
    const bool isHexadecimal = reference[2] == 'x';
    unsigned code = 0;
    std::from_chars(reference.data() + (isHexadecimal ? 3 : 2), reference.data() + reference.size(),
                    code, isHexadecimal ? kHexadecimal : kDecimal);
    if (code < 0x80) {
        return "&#" + std::to_string(code) + ";";
    }
    char utf8[quavera::kLargestUtf8];
    const char* const end = quavera::PutCharacter(code, utf8);
    return end == nullptr ? std::string() : std::string(static_cast<const char*>(utf8), end);
}

std::string_view WithoutPrefix(std::string_view name) {
    return name.substr(name.rfind(':') + 1);
}

/// Goes over the document once. That it is well-formed spares all questions of what may be missing.
class Rewriter {
 public:
    explicit Rewriter(std::string_view xml) : xml_(xml) { text_.reserve(xml.size()); }

    std::string Run() {
        while (at_ < xml_.size()) {
            if (StartsWith("&#")) {
                text_ += Resolve(TakePast(";"));
            } else if (StartsWith("<!--")) {
                TakePast("-->");
            } else if (StartsWith("<?")) {
                TakePast("?>");
            } else if (StartsWith("<![CDATA[")) {
                text_ += TakePast("]]>");
            } else if (xml_[at_] == '<') {
                CopyTag();
            } else {
                text_ += xml_[at_++];
                text_ += TakeUpTo("&<");
            }
        }
        return std::move(text_);
    }

 private:
    bool StartsWith(std::string_view start) const {
        return xml_.compare(at_, start.size(), start) == 0;
    }
    std::string_view TakeUntil(std::size_t end) {
        const std::size_t start = std::exchange(at_, std::min(end, xml_.size()));
        return xml_.substr(start, at_ - start);
    }
    std::string_view TakeUpTo(const char* ends) { return TakeUntil(xml_.find_first_of(ends, at_)); }
    std::string_view TakePast(std::string_view end) {
        return TakeUntil(xml_.find(end, at_) + end.size());
    }

    void CopyTag() {
        const bool isEnd = xml_[at_ + 1] == '/';
        at_ += isEnd ? 2 : 1;
        const std::string_view name = TakeUpTo(" \t\r\n/>");
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

    /// Copies an attribute if it means something.
    void CopyAttribute() {
        at_ = xml_.find_first_not_of(" \t\r\n", at_);
        if (xml_[at_] == '>' || xml_[at_] == '/') {
            return;
        }
        const std::size_t start = at_;
        const std::string_view name = TakeUpTo(" \t\r\n=");
        at_ = xml_.find_first_of("\"'", at_);
        at_ = xml_.find(xml_[at_], at_ + 1) + 1;
        const std::string_view local = WithoutPrefix(name);
        const bool isNamespace = name.substr(0, 5) == "xmlns";
        if (isNamespace || local == "nil" || local == "type" || local == "mustUnderstand") {
            text_ += ' ';
            text_ += xml_.substr(start, at_ - start);
        }
    }

    const std::string_view xml_;
    std::string text_;
    std::size_t at_ = 0;
    int depth_ = 0;
    bool isEnvelope_ = false;
    bool isBody_ = false;
};

}  // namespace

std::string RewriteForGsoap(const std::string& xml) {
    return Rewriter(xml).Run();
}

}  // namespace tool
