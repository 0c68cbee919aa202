#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ExpatParser.h"
#include "platform/DirectXml.h"
#include "platform/Node.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlText.h"

namespace ZQXML {
namespace {

/// Builds the tree of one text in a single arena.
class Reader : public quavera::ExpatParser<Reader> {
 public:
    /// Of a text that was parsed.
    zq::auto_com<INode> TakeRoot() { return std::move(root_); }

    void Start(const XML_Char* name, const XML_Char** attributes) {
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

    void End(const XML_Char* /*name*/) {
        FinishText(false);
        open_.pop_back();
    }

    void Text(std::string_view text) {
        if (takesText_) {
            text_ += text;
        }
    }

 private:
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

    zq::auto_com<INode> root_;
    std::vector<Node*> open_;  // the elements whose end tag is still to come
    std::string text_;         // of the innermost one, as far as it is read
    bool takesText_ = false;   // it has no child yet
};

}  // namespace

static_assert(quavera::kLongestXml == kMaxXmlSize && quavera::kDeepestXml == kMaxXmlDepth);

zq::auto_com<INode> ParseXml(std::string_view text, std::string* error) {
    // Only what is right for sure: all else, long texts included, is for expat to judge.
    zq::auto_com<INode> root = text.size() <= kMaxXmlSize ? ReadXmlDirectly(text) : nullptr;
    if (root) {
        return root;
    }
    Reader reader;
    if (reader.Parse(text)) {
        return reader.TakeRoot();
    }
    if (error != nullptr) {
        *error = reader.Error();
    }
    return nullptr;
}

}  // namespace ZQXML
