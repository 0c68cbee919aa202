#ifndef QUAVERA_TESTS_PLATFORM_EXPAT_ORACLE_H_
#define QUAVERA_TESTS_PLATFORM_EXPAT_ORACLE_H_

#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TreeText.h"

/// What expat itself says of a text, with the few rules for element trees put on top of it in the
/// plainest way. The tests hold the platform's reader and writer against it.
struct ExpatVerdict {
    bool isWellFormed = false;
    bool hasDoctype = false;
    std::size_t depth = 0;        // the most elements that were open at once
    std::string version = "1.0";  // as declared
    std::string encoding;         // as declared; empty where none is
    unsigned long line = 0;       // of the error
    unsigned long column = 0;
    std::string rootName;
    std::string tree;  // in the form of `TreeText`
};

class ExpatOracle {
 public:
    static ExpatVerdict Judge(std::string_view text) {
        ExpatOracle oracle;
        const XML_Parser parser = oracle.parser_.get();
        oracle.verdict_.isWellFormed = XML_Parse(parser, text.data(), static_cast<int>(text.size()),
                                                 XML_TRUE) == XML_STATUS_OK;
        oracle.verdict_.line = XML_GetCurrentLineNumber(parser);
        oracle.verdict_.column = XML_GetCurrentColumnNumber(parser) + 1;
        return oracle.verdict_;
    }

 private:
    struct Element {
        std::string name;
        std::string text;
        bool isEncoded;
        std::string children;
    };

    ExpatOracle() : parser_(XML_ParserCreate("UTF-8"), XML_ParserFree) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser_.get(), OnText);
        XML_SetXmlDeclHandler(parser_.get(), OnDeclaration);
        XML_SetStartDoctypeDeclHandler(parser_.get(), OnDoctype);
    }

    static void OnStart(void* self, const char* name, const char** attributes) {
        auto* const oracle = static_cast<ExpatOracle*>(self);
        if (oracle->open_.empty()) {
            oracle->verdict_.rootName = name;
        } else if (oracle->open_.back().children.empty()) {
            oracle->open_.back().children = "(";
        } else {
            oracle->open_.back().children += ' ';
        }
        oracle->open_.push_back({name, {}, false, {}});
        oracle->verdict_.depth = std::max(oracle->verdict_.depth, oracle->open_.size());
        for (; *attributes != nullptr; attributes += 2) {
            const std::string attribute = attributes[0];
            const std::string value = attributes[1];
            oracle->open_.back().isEncoded |= attribute == "encoding" && value == "base64";
        }
    }

    static void OnEnd(void* self, const char* /*name*/) {
        auto* const oracle = static_cast<ExpatOracle*>(self);
        const Element element = oracle->open_.back();
        oracle->open_.pop_back();
        const bool isBlank = element.text.find_first_not_of(" \t\n\r") == std::string::npos;
        const bool hasChildren = !element.children.empty();
        const std::string text =
            Quoted(element.name) + '=' + Quoted(isBlank && hasChildren ? "" : element.text) +
            (element.isEncoded ? "*" : "") + element.children + (hasChildren ? ")" : "");
        (oracle->open_.empty() ? oracle->verdict_.tree : oracle->open_.back().children) += text;
    }

    static void OnText(void* self, const char* text, int size) {
        Element& element = static_cast<ExpatOracle*>(self)->open_.back();
        if (element.children.empty()) {
            element.text.append(text, static_cast<std::size_t>(size));
        }
    }

    static void OnDeclaration(void* self, const char* version, const char* encoding,
                              int /*standalone*/) {
        ExpatVerdict& verdict = static_cast<ExpatOracle*>(self)->verdict_;
        verdict.version = version;
        verdict.encoding = encoding == nullptr ? "" : encoding;
    }

    static void OnDoctype(void* self, const char* /*name*/, const char* /*system*/,
                          const char* /*public*/, int /*hasInternalSubset*/) {
        static_cast<ExpatOracle*>(self)->verdict_.hasDoctype = true;
    }

    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser_;
    std::vector<Element> open_;
    ExpatVerdict verdict_;
};

#endif  // QUAVERA_TESTS_PLATFORM_EXPAT_ORACLE_H_
