#ifndef QUAVERA_RECORDS_FIELDS_H_
#define QUAVERA_RECORDS_FIELDS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/zqshared.h"

/// The verbs that the records are written with. A record's three directions are blocks of rows, one
/// for each element or line, and a verb names the form that the row's value takes:
///
/// | verb     | field               | element's text                     | log text     |
/// | -------- | ------------------- | ---------------------------------- | ------------ |
/// | Plain    | `std::string`       | the text                           | the text     |
/// | Display  | `std::wstring`      | base64 of the UTF-8 text, marked   | UTF-8        |
/// | Number   | `int`               | decimal                            | decimal      |
/// | Unsigned | unsigned, 32 bits   | decimal                            | decimal      |
/// | Flag     | `bool`              | "true" or "false"                  | the same     |
/// | Nested   | a record            | the record's own element           | its own text |
/// | Records  | vector of records   | an element with one for each       | their texts  |
/// | Values   | vector of texts     | an element with a "Value" for each |              |
/// | Each     | vector of texts     | an element for each                | a line each  |

/// Adds the members of a SOAP record to an element, in the order of the calls. A member that is
/// null is left out, and so is a null item of a list. A wrapper is what a SOAP record holds for a
/// repeated element: `items` and their `count`.
class ElementWriter {
 public:
    explicit ElementWriter(ZQXML::INode* element) : element_(element) {}

    void Plain(std::string_view name, const std::string* text);
    /// Plain, by the node's other operation for texts.
    void String(std::string_view name, const std::string* text);
    void Display(std::string_view name, std::string* text);
    void Number(std::string_view name, const int* value);
    void Unsigned(std::string_view name, const unsigned long* value);
    void Flag(std::string_view name, const bool* value);

    /// For members that a SOAP record holds by value: zero and false stand for "absent".
    void NumberUnlessZero(std::string_view name, int value);
    void FlagIfTrue(std::string_view name, bool value);

    /// A number as a plain text.
    template <class Integer>
    void Decimal(std::string_view name, const Integer* value) {
        if (value != nullptr) {
            const std::string text = zq::ToString(*value);
            Plain(name, &text);
        }
    }

    /// The element that `Item` makes of a SOAP record.
    template <class Item, class Soap>
    void Nested(Soap* soap) {
        if (soap != nullptr) {
            element_->AppendChild(Item::ToXML(soap).get());
        }
    }

    /// An element with those of the wrapper's records; without items it is empty.
    template <class Item, class Wrapper>
    void Records(std::string_view name, const Wrapper* wrapper) {
        if (wrapper != nullptr) {
            RecordsAlways<Item>(name, wrapper);
        }
    }

    /// The same, but a null wrapper gives an empty element too.
    template <class Item, class Wrapper>
    void RecordsAlways(std::string_view name, const Wrapper* wrapper) {
        const auto list = NewChild(name);
        for (int at = 0; wrapper != nullptr && at < wrapper->count; ++at) {
            ElementWriter(list.get()).Nested<Item>(wrapper->items[at]);
        }
        element_->AppendChild(list.get());
    }

    /// An element with a "Value" for each text of the wrapper; without texts it is empty.
    template <class Wrapper>
    void Values(std::string_view name, const Wrapper* wrapper) {
        if (wrapper != nullptr) {
            const auto list = NewChild(name);
            ElementWriter(list.get()).Each("Value", wrapper);
            element_->AppendChild(list.get());
        }
    }

    /// The same for the texts of an object; nothing without texts.
    void ValuesUnlessEmpty(std::string_view name, const std::vector<std::string>& texts);

    /// An element of that name for each text of the wrapper.
    template <class Wrapper>
    void Each(std::string_view name, const Wrapper* wrapper) {
        for (int at = 0; wrapper != nullptr && at < wrapper->count; ++at) {
            Plain(name, &wrapper->items[at]);
        }
    }

 private:
    /// A new element that is still to be appended.
    zq::auto_com<ZQXML::INode> NewChild(std::string_view name);

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
    /// Goes to the next child of that name.
    bool Next(std::string_view name);

    /// The child, borrowed.
    ZQXML::INode* Child() const { return child_; }
    /// Whether the child has that name and no row has taken it yet. Then this one has.
    bool Takes(std::string_view name);

    void Plain(std::string_view name, std::string& field);
    void Display(std::string_view name, std::wstring& field);
    void Number(std::string_view name, int& field);
    /// Sets the flag if the text is that of a true one; no text ever clears it.
    void Flag(std::string_view name, bool& field);

    /// A number of 32 bits; a wider field gets zeros in front of it.
    template <class Integer>
    void Unsigned(std::string_view name, Integer& field) {
        if (Takes(name)) {
            field = static_cast<std::uint32_t>(child_->GetValueInt());
        }
    }

    template <class Item>
    void Nested(std::string_view name, Item& field) {
        if (Takes(name)) {
            field.FromXML(child_);
        }
    }

    /// Appends an item for every child of the element, whatever its name.
    template <class Item>
    void Records(std::string_view name, std::vector<Item>& field) {
        if (Takes(name)) {
            for (ChildReader item(child_); item.Next();) {
                item.AppendTo(field);
            }
        }
    }

    /// Appends an item for every child of the element that is named `itemName`.
    template <class Item>
    void RecordsNamed(std::string_view name, std::string_view itemName, std::vector<Item>& field) {
        if (Takes(name)) {
            for (ChildReader item(child_); item.Next(itemName);) {
                item.AppendTo(field);
            }
        }
    }

    /// Appends the text of every child of the element, whatever its name.
    void Values(std::string_view name, std::vector<std::string>& field);
    /// Appends the text of this element.
    void Each(std::string_view name, std::vector<std::string>& field);

 private:
    template <class Item>
    void AppendTo(std::vector<Item>& field) {
        Item item;
        item.FromXML(child_);
        field.push_back(item);
    }

    ZQXML::INodeList* children_;
    ZQXML::INode* child_ = nullptr;
    bool isStarted_ = false;
    bool isTaken_ = false;
    std::string nameStorage_;
    std::string_view name_;
};

/// Collects the lines of a log text: "label = value\r\n".
class TextLines {
 public:
    void Plain(std::string_view label, std::string_view text);
    void Display(std::string_view label, const std::wstring& text);
    void Number(std::string_view label, int value);
    void Unsigned(std::string_view label, unsigned long value);
    void Flag(std::string_view label, bool value);
    /// A line for each text.
    void Each(std::string_view label, const std::vector<std::string>& texts);
    /// The texts, each right behind the prefix, without line ends.
    void Unbroken(std::string_view prefix, const std::vector<std::string>& texts);

    /// The items' own texts, each right behind the prefix.
    template <class Item>
    void Records(std::string_view prefix, std::vector<Item>& items) {
        for (Item& item : items) {
            Text(prefix);
            Text(item.ToString());
        }
    }

    /// A line with a label that differs from the others' form.
    void Line(std::string_view label, std::string_view text);
    /// A text without label and line end.
    void Text(std::string_view text) { text_ += text; }

    std::string Take() { return std::move(text_); }

 private:
    std::string text_;
};

/// Whether `node` is an element of that name; a null one is not.
bool IsNamed(ZQXML::INode* node, const std::string& name);

/// The first child of that name; null where there is none, or no node.
ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& name);

/// A new element of that name, without text.
zq::auto_com<ZQXML::INode> NewElement(const std::string& name);

/// A new element of that name, filled by `Record`'s writer into a given node.
template <class Record, class Soap>
zq::auto_com<ZQXML::INode> FilledElement(const std::string& name, Soap* soap) {
    auto element = NewElement(name);
    Record::ToXML(element.get(), soap);
    return element;
}

#endif  // QUAVERA_RECORDS_FIELDS_H_
