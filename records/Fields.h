#ifndef QUAVERA_RECORDS_FIELDS_H_
#define QUAVERA_RECORDS_FIELDS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/SmallText.h"
#include "base/TextBuffer.h"
#include "common/DirectText.h"
#include "common/PlatformExtras.h"
#include "platform/zqshared.h"
#include "records/QuavData.h"

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

/// A new element of that name, without text.
zq::auto_com<ZQXML::INode> NewElement(std::string_view name);

/// Adds the members of a SOAP record to an element, in the order of the calls. A member that is
/// null is left out, and so is a null item of a list. A wrapper is what a SOAP record holds for a
/// repeated element: `items` and their `count`.
class ElementWriter {
 public:
    explicit ElementWriter(ZQXML::INode* element) : element_(element) {}

    /// A new element of that name, with what `Record` writes of a SOAP record.
    template <class Record, class Soap>
    static zq::auto_com<ZQXML::INode> Filled(std::string_view name, Soap* soap) {
        auto element = NewElement(name);
        Record::ToXML(element.get(), soap);
        return element;
    }

    void Plain(std::string_view name, const std::string* text) {
        if (text != nullptr) {
            extras::AddCString(element_, name, text->c_str());
        }
    }
    /// Plain, by the node's other operation for texts.
    void String(std::string_view name, const std::string* text) {
        if (text != nullptr) {
            extras::AddString(element_, name, *text);
        }
    }
    void Display(std::string_view name, std::string* text) {
        if (text != nullptr) {
            extras::AddEncoded(element_, name, *text);
        }
    }
    void Number(std::string_view name, const int* value) {
        if (value != nullptr) {
            extras::AddNumber(element_, name, *value);
        }
    }
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

    /// An element of that name, with what `Item` writes of a SOAP record.
    template <class Item, class Soap>
    void Nested(std::string_view name, Soap* soap) {
        if (soap != nullptr) {
            const auto child = NewChild(name);
            Item::ToXML(child.get(), soap);
            element_->AppendChild(child.get());
        }
    }

    /// An element with one, named `itemName`, for each of the wrapper's records; without items it
    /// is empty.
    template <class Item, class Wrapper>
    void Records(std::string_view name, std::string_view itemName, const Wrapper* wrapper) {
        if (wrapper != nullptr) {
            RecordsAlways<Item>(name, itemName, wrapper);
        }
    }

    /// The same, but a null wrapper gives an empty element too.
    template <class Item, class Wrapper>
    void RecordsAlways(std::string_view name, std::string_view itemName, const Wrapper* wrapper) {
        const auto list = NewChild(name);
        for (int at = 0; wrapper != nullptr && at < wrapper->count; ++at) {
            ElementWriter(list.get()).Nested<Item>(itemName, wrapper->items[at]);
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
    zq::auto_com<ZQXML::INode> NewChild(std::string_view name) {
        return extras::CreateNodeFor(element_, name);
    }

    ZQXML::INode* element_;
};

/// Walks the children of an element. For each child the rows are tried in order, and the first one
/// of its name takes it.
///
/// Children mostly come in the order of the rows. So the row behind one that took a child is tried
/// on the next child at once, and a pass over the rows may take many; a child that came up on the
/// way and found no row still meets all of them in a pass of its own.
class ChildReader {
 public:
    /// `element` may be null, and then has no children.
    explicit ChildReader(ZQXML::INode* element) : walk_(element) {}

    /// Begins a pass over the rows, with the next child that they have not taken; false at the end.
    bool Next() {
        if (state_ == kNotTried) {
            state_ = kFree;
            return true;
        }
        return Advance(kFree);
    }
    /// Goes to the next child of that name.
    bool Next(std::string_view name) {
        while (Next()) {
            if (Takes(name)) {
                return true;
            }
        }
        return false;
    }

    /// The child that the last row took, borrowed; without rows, that of the pass.
    ZQXML::INode* Child() const { return walk_.Node(); }
    /// Its text, borrowed until the next row.
    std::string_view Text() { return walk_.Text(); }
    /// Whether the next child that no row has taken yet has that name. Then this row takes it.
    bool Takes(std::string_view name) {
        if (state_ == kTaken) {
            Advance(kNotTried);
        }
        if (state_ == kAtEnd || !zq::IsSameText(name, walk_.Name())) {
            return false;
        }
        state_ = kTaken;
        return true;
    }

    void Plain(std::string_view name, std::string& field) {
        if (Takes(name)) {
            field = Text();
        }
    }
    void Display(std::string_view name, std::wstring& field) {
        if (Takes(name)) {
            field = walk_.DisplayText();
        }
    }
    void Number(std::string_view name, int& field) {
        if (Takes(name)) {
            field = Child()->GetValueInt();
        }
    }
    /// Sets the flag if the text is that of a true one; no text ever clears it.
    void Flag(std::string_view name, bool& field) {
        if (Takes(name) && Text() == TRUE_STRING) {
            field = true;
        }
    }

    /// A number of 32 bits; a wider field gets zeros in front of it.
    template <class Integer>
    void Unsigned(std::string_view name, Integer& field) {
        if (Takes(name)) {
            field = static_cast<std::uint32_t>(Child()->GetValueInt());
        }
    }

    template <class Item>
    void Nested(std::string_view name, Item& field) {
        if (Takes(name)) {
            field.FromXML(Child());
        }
    }

    /// Appends an item for every child of the element, whatever its name.
    template <class Item>
    void Records(std::string_view name, std::vector<Item>& field) {
        if (Takes(name)) {
            Reserve(field);
            for (ChildReader item(Child()); item.Next();) {
                item.AppendTo(field);
            }
        }
    }

    /// Appends an item for every child of the element that is named `itemName`.
    template <class Item>
    void RecordsNamed(std::string_view name, std::string_view itemName, std::vector<Item>& field) {
        if (Takes(name)) {
            for (ChildReader item(Child()); item.Next(itemName);) {
                item.AppendTo(field);
            }
        }
    }

    /// Appends the text of every child of the element, whatever its name.
    void Values(std::string_view name, std::vector<std::string>& field);
    /// Appends the text of this element.
    void Each(std::string_view name, std::vector<std::string>& field);

 private:
    /// Room for an item for each child of this one, in a list that is empty: one that grows more
    /// than once grows best by itself.
    template <class Item>
    void Reserve(std::vector<Item>& field) {
        if (field.empty()) {
            field.reserve(CountChildren());
        }
    }

    template <class Item>
    void AppendTo(std::vector<Item>& field) {
        if constexpr (std::is_constructible_v<Item, ListItem>) {
            field.emplace_back(ListItem());
        } else {
            field.emplace_back();
        }
        field.back().FromXML(Child());
    }

    std::size_t CountChildren();

    /// What the rows have done with the child.
    enum State {
        kFree,      // it came up at the beginning of a pass, and no row has taken it yet
        kNotTried,  // nor this one, which came up within a pass: the rows ahead do not know it
        kTaken,
        kAtEnd,  // there is none
    };

    bool Advance(State state) {
        const bool isThere = walk_.Next();
        state_ = isThere ? state : kAtEnd;
        return isThere;
    }

    extras::ChildWalk walk_;
    State state_ = kFree;
};

/// Collects the lines of a log text: "label = value\r\n".
///
/// The verbs are inline for the labels: with optimisation for speed, the compiler writes the short
/// ones as constants.
class TextLines {
 public:
    /// The lines of a record.
    template <class Record>
    static std::string Of(Record& record) {
        TextLines lines;
        record.AddLines(lines);
        return lines.Take();
    }

    void Plain(std::string_view label, std::string_view text) {
        Begin(label, text.size());
        text_.Put(text);
        text_.Put(kLineEnd);
    }
    void Display(std::string_view label, const std::wstring& text) {
        Begin(label, text.size() * kLargestUtf8);
        const std::size_t size = NarrowDirectly(text, text_.End());
        if (size == kUnusualText) {
            PutUnusual(text);
        } else {
            text_.MoveEnd(size);
        }
        text_.Put(kLineEnd);
    }
    void Number(std::string_view label, int value) { Plain(label, extras::Decimal(value).View()); }
    void Unsigned(std::string_view label, unsigned long value);
    void Flag(std::string_view label, bool value) { Plain(label, zq::ToString(value)); }
    /// A line for each text.
    void Each(std::string_view label, const std::vector<std::string>& texts);
    /// The texts, each right behind the prefix, without line ends.
    void Unbroken(std::string_view prefix, const std::vector<std::string>& texts);

    /// The items' own texts, each right behind the prefix.
    template <class Item>
    void Records(std::string_view prefix, std::vector<Item>& items) {
        const std::size_t start = text_.Size();
        for (Item& item : items) {
            Text(prefix);
            item.AddLines(*this);
            if (&item == &items.front()) {
                ExpectItems(items.size(), text_.Size() - start);
            }
        }
    }

    /// A line with a label that differs from the others' form.
    void Line(std::string_view label, std::string_view text);
    /// A text without label and line end.
    void Text(std::string_view text);

    std::string Take() { return text_.Take(); }

 private:
    static constexpr std::string_view kEquals = " = ";
    static constexpr std::string_view kLineEnd = "\r\n";
    static constexpr std::size_t kLargestUtf8 = 4;  // bytes of a character

    /// Begins a line whose value takes up to that many bytes, with room for its end.
    void Begin(std::string_view label, std::size_t valueSize) {
        text_.Reserve(label.size() + kEquals.size() + valueSize + kLineEnd.size());
        text_.Put(label);
        text_.Put(kEquals);
    }
    void PutUnusual(const std::wstring& text);
    /// Makes room for items, by the size of the first one: up to what is typical, or one long item
    /// would take as much for each of the others.
    void ExpectItems(std::size_t count, std::size_t firstSize);

    zq::TextBuffer text_;
};

/// Whether `node` is an element of that name; a null one is not.
bool IsNamed(ZQXML::INode* node, const std::string& name);

/// The first child of that name; null where there is none, or no node.
ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& name);

#endif  // QUAVERA_RECORDS_FIELDS_H_
