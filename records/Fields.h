#ifndef QUAVERA_RECORDS_FIELDS_H_
#define QUAVERA_RECORDS_FIELDS_H_

#include <string>
#include <string_view>

#include "platform/zqshared.h"

/// The verbs that the records are written with: a record's three directions are blocks of rows,
/// one row for each element, and each verb is one form that a value takes.
///
/// | verb    | field          | element's text                     | log text       |
/// | ------- | -------------- | ---------------------------------- | -------------- |
/// | Plain   | `std::string`  | the text                           | the text       |
/// | Display | `std::wstring` | base64 of the UTF-8 text, marked   | UTF-8          |
/// | Number  | `int`          | decimal                            | decimal        |

/// Adds the members of a SOAP record to an element, in the order of the calls; a member that is
/// null is left out.
class ElementWriter {
 public:
    explicit ElementWriter(ZQXML::INode* element) : element_(element) {}

    void Plain(std::string_view name, const std::string* text);
    void Display(std::string_view name, std::string* text);
    void Number(std::string_view name, const int* value);

 private:
    ZQXML::INode* element_;
};

/// Walks the children of an element. For each child the rows are tried in order, and the first one
/// of its name takes it.
class ChildReader {
 public:
    /// `element` may be null, and then has no children.
    explicit ChildReader(ZQXML::INode* element);

    /// Goes to the next child, the first one at first; false at the end.
    bool Next();

    void Plain(std::string_view name, std::string& field);
    void Display(std::string_view name, std::wstring& field);
    void Number(std::string_view name, int& field);

 private:
    bool Takes(std::string_view name);

    ZQXML::INodeList* children_;
    ZQXML::INode* child_ = nullptr;
    bool isStarted_ = false;
    bool isTaken_ = false;
    std::string nameStorage_;
    std::string_view name_;
};

/// Collects the lines of a log text.
class TextLines {
 public:
    void Plain(std::string_view label, std::string_view text);
    void Display(std::string_view label, const std::wstring& text);
    void Number(std::string_view label, int value);

    std::string Take() { return std::move(text_); }

 private:
    std::string text_;
};

/// A new element of that name, without text.
zq::auto_com<ZQXML::INode> NewElement(const std::string& name);

#endif  // QUAVERA_RECORDS_FIELDS_H_
