#ifndef QUAVERA_RECORDS_FIELDS_H_
#define QUAVERA_RECORDS_FIELDS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/SmallText.h"
#include "base/Speed.h"
#include "base/TextBuffer.h"
#include "common/BorrowedText.h"
#include "common/NodeAccess.h"
#include "platform/zqshared.h"
#include "records/ChildWalk.h"
#include "records/Nested.h"
#include "records/QuavData.h"
#include "records/RowName.h"

/// The verbs that the records are written with. A record's three directions are blocks of rows, one
/// for each element or line, and a verb names the form that the row's value takes: W when a SOAP
/// record's member is written (ElementWriter), R when a field is read (ChildReader), T in the log
/// text (TextLines).
///
/// | verb              | in    | field             | element, or line of the log text             |
/// | ----------------- | ----- | ----------------- | -------------------------------------------- |
/// | Plain             | W R T | text              | the text, in the node's C-string form        |
/// | String            | W     | text              | in the string form, which stations and a     |
/// |                   |       |                   | record's own fields have: nodes may tell     |
/// | Display           | W R T | text, wide text   | base64 of UTF-8, marked; UTF-8               |
/// | DisplayAfter      | T     | wide text         | UTF-8, after a label written as it stands    |
/// | Number            | W R T | int               | decimal, in the int form                     |
/// | NumberUnlessZero  | W     | int by value      | the same; zero stands for "absent"           |
/// | Unsigned          | W R T | unsigned, 32 bits | decimal, in the unsigned form                |
/// | Decimal           | W     | any integer       | decimal in the C-string form: an account's   |
/// | DecimalString     | W     | int               | in the string form: an index's, a genre's    |
/// | HexLetter         | W R   | text              | its first byte's code in hexadecimal         |
/// | Flag              | W R T | bool              | "true" or "false"; reading never clears one  |
/// | FlagIfTrue        | W     | bool by value     | the same; false stands for "absent"          |
/// | Nested            | W R T | a record          | its own element; its own text                |
/// | Of                | T     | a record          | its lines, among the others                  |
/// | Records           | W R T | list of records   | an element with one for each, read whatever  |
/// |                   |       |                   | its name; their texts, each after the prefix |
/// | RecordsAlways     | W     | the same          | also of a null wrapper: a genre's            |
/// | RecordsNamed      | R     | the same          | items of one name only: a genre's            |
/// | Values            | W R   | list of texts     | an element with a "Value" for each, read     |
/// |                   |       |                   | whatever its name                            |
/// | ValuesUnlessEmpty | W     | the same          | in the string form; nothing without texts    |
/// | Each              | W R T | the same          | an element, or a line, for each              |
/// | EachDecoded       | R     | the same          | decoded where the node marks it as encoded   |
/// | Unbroken          | T     | the same          | each after the prefix, without line ends     |

/// A new element of that name, without text.
zq::auto_com<ZQXML::INode> NewElement(RowName name);

/// A new element of that name, with what `Writer` writes of a SOAP record.
template <class Writer, class Soap>
zq::auto_com<ZQXML::INode> NewElementWith(RowName name, Soap* soap) {
    auto element = NewElement(name);
    Writer::ToXML(element.get(), soap);
    return element;
}

/// Throws `std::bad_alloc`.
[[noreturn]] void FailForItems();

/// The number of items of a wrapper, which is what a SOAP record holds for a repeated element:
/// `items` and their `count`. None for a null wrapper. One that counts items but has none is left
/// behind by a reader that had no memory for them, and counts as what it is: a failed allocation.
template <class Wrapper>
int CountItems(const Wrapper* wrapper) {
    if (wrapper == nullptr || wrapper->count <= 0) {
        return 0;
    }
    if (wrapper->items == nullptr) {
        FailForItems();
    }
    return wrapper->count;
}

/// The number of items that a wrapper states, for a row of its own; null for a null wrapper.
template <class Wrapper>
const int* CountOf(const Wrapper* wrapper) {
    return wrapper == nullptr ? nullptr : &wrapper->count;
}

/// Adds the members of a SOAP record to an element, in the order of the calls. A member that is
/// null is left out, and so is a null item of a list.
class ElementWriter {
 public:
    explicit ElementWriter(ZQXML::INode* element) : element_(element) {}

    void Plain(RowName name, const std::string* text) {
        if (text != nullptr) {
            quavera::Nodes::AddCString(element_, name, text->c_str());
        }
    }
    void String(RowName name, const std::string* text) {
        if (text != nullptr) {
            quavera::Nodes::AddText(element_, name, *text);
        }
    }
    void Display(RowName name, const std::string* text) {
        if (text != nullptr) {
            quavera::Nodes::AddEncoded(element_, name, *text);
        }
    }
    void Number(RowName name, const int* value) {
        if (value != nullptr) {
            quavera::Nodes::AddNumber(element_, name, *value);
        }
    }
    void NumberUnlessZero(RowName name, int value) { Number(name, value == 0 ? nullptr : &value); }
    void Unsigned(RowName name, const unsigned long* value);
    template <class Integer>
    void Decimal(RowName name, const Integer* value) {
        if (value != nullptr) {
            const std::string text = zq::ToString(*value);
            Plain(name, &text);
        }
    }
    void DecimalString(RowName name, const int* value);
    void HexLetter(RowName name, const std::string* text);
    void Flag(RowName name, const bool* value);
    void FlagIfTrue(RowName name, bool value) { Flag(name, value ? &value : nullptr); }

    /// An element of that name, with what `Writer` writes of a SOAP record.
    template <class Writer, class Soap>
    void Nested(RowName name, Soap* soap) {
        if (soap != nullptr) {
            const auto child = quavera::Nodes::NewChild(element_, name);
            Writer::ToXML(child.get(), soap);
            element_->AppendChild(child.get());
        }
    }

    /// An element with one, named `itemName`, for each of the wrapper's records; without items it
    /// is empty.
    template <class Writer, class Wrapper>
    void Records(RowName name, RowName itemName, const Wrapper* wrapper) {
        if (wrapper != nullptr) {
            RecordsAlways<Writer>(name, itemName, wrapper);
        }
    }
    template <class Writer, class Wrapper>
    void RecordsAlways(RowName name, RowName itemName, const Wrapper* wrapper) {
        const auto list = quavera::Nodes::NewChild(element_, name);
        const int count = CountItems(wrapper);
        for (int at = 0; at < count; ++at) {
            ElementWriter(list.get()).Nested<Writer>(itemName, wrapper->items[at]);
        }
        element_->AppendChild(list.get());
    }

    template <class Wrapper>
    void Values(RowName name, const Wrapper* wrapper) {
        if (wrapper != nullptr) {
            const auto list = quavera::Nodes::NewChild(element_, name);
            ElementWriter(list.get()).Each("Value", wrapper);
            element_->AppendChild(list.get());
        }
    }
    void ValuesUnlessEmpty(RowName name, const std::vector<std::string>& texts);

    template <class Wrapper>
    void Each(RowName name, const Wrapper* wrapper) {
        const int count = CountItems(wrapper);
        for (int at = 0; at < count; ++at) {
            Plain(name, &wrapper->items[at]);
        }
    }

 private:
    ZQXML::INode* element_;
};

/// Walks the children of an element. For each child the rows are tried in order, and the first one
/// of its name takes it.
///
/// Children mostly come in the order of the rows. So the row after one that took a child is tried
/// on the next child at once, and a pass over the rows may take many, which saves 5 % of FromXML; a
/// child that came up on the way and found no row still meets all of them in a pass of its own.
class ChildReader {
 public:
    /// `element` may be null, and then has no children.
    explicit ChildReader(ZQXML::INode* element) : walk_(element) {}
    ChildReader(const ChildReader&) = delete;
    ChildReader& operator=(const ChildReader&) = delete;
    ~ChildReader() = default;

    /// Begins a pass over the rows, with the next child that they have not taken; false at the end.
    bool Next() {
        if (state_ == kNotTried) {
            state_ = kFree;
            return true;
        }
        return Advance(kFree);
    }
    /// Goes to the next child of that name.
    bool Next(RowName name) {
        while (Next()) {
            if (Takes(name)) {
                return true;
            }
        }
        return false;
    }

    /// The child that the last row took, borrowed; without rows, that of the pass.
    ZQXML::INode* Child() const { return walk_.Node(); }

    void Plain(RowName name, std::string& field) {
        if (Takes(name)) {
            const std::string_view text = walk_.Text();
            field.clear();  // an assignment in place of both would cost 4 % of FromXML
            field.append(text);
        }
    }
    void Display(RowName name, std::wstring& field) {
        if (Takes(name)) {
            field = walk_.DisplayText();
        }
    }
    void Number(RowName name, int& field) {
        if (Takes(name)) {
            field = walk_.Number();
        }
    }
    template <class Integer>
    void Unsigned(RowName name, Integer& field) {
        if (Takes(name)) {
            field = static_cast<std::uint32_t>(walk_.Number());  // zeros in front of it
        }
    }
    void HexLetter(RowName name, std::string& field);
    void Flag(RowName name, bool& field) {
        if (Takes(name) && walk_.Text() == TRUE_STRING) {
            field = true;
        }
    }

    template <class Item>
    void Nested(RowName name, Item& field) {
        if (Takes(name)) {
            field.FromXML(Child());
        }
    }

    template <class Item>
    void Records(RowName name, std::vector<Item>& field) {
        if (Takes(name)) {
            ChildReader items(Child());
            // Saves 10 % of FromXML. A list that grows more than once grows best by itself.
            if (field.empty()) {
                field.reserve(items.walk_.CountHint());
            }
            while (items.Next()) {
                items.AppendTo(field);
            }
        }
    }
    template <class Item>
    void RecordsNamed(RowName name, RowName itemName, std::vector<Item>& field) {
        if (Takes(name)) {
            for (ChildReader items(Child()); items.Next(itemName);) {
                items.AppendTo(field);
            }
        }
    }

    void Values(RowName name, std::vector<std::string>& field);
    void Each(RowName name, std::vector<std::string>& field) {
        if (Takes(name)) {
            field.emplace_back(walk_.Text());
        }
    }
    void EachDecoded(RowName name, std::vector<std::string>& field) {
        if (Takes(name)) {
            field.push_back(Child()->GetValueDecoded());
        }
    }

 private:
    /// Appends an item that has read the child: all of it, or, where that fails, nothing. A track
    /// without the room that its constructor reserves saves 32 % of a round.
    template <class Item>
    void AppendTo(std::vector<Item>& field) {
        if constexpr (std::is_constructible_v<Item, QuavData::Unreserved>) {
            field.emplace_back(QuavData::Unreserved());
        } else {
            field.emplace_back();
        }
        try {
            field.back().FromXML(Child());
        } catch (...) {
            field.pop_back();
            throw;
        }
    }

    /// Whether the next child that no row has taken yet has that name. Then this row takes it.
    QUAVERA_INLINE_FOR_SPEED bool Takes(RowName name) {
        if (state_ == kTaken) {
            Advance(kNotTried);
        }
        if (state_ == kAtEnd || !quavera::IsSameText(name, walk_.Name())) {
            return false;
        }
        state_ = kTaken;
        return true;
    }

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

    ChildWalk walk_;
    State state_ = kFree;
};

/// Collects the lines of a log text: "label = value\r\n".
///
/// The verbs are inline for the labels: with optimisation for speed, the compiler writes the short
/// ones as constants. Saves 12 % of a log text.
class TextLines {
 public:
    QUAVERA_INLINE_FOR_SPEED void Plain(RowName label, std::string_view text) {
        char* to = Begin(label, text.size() + kLineEnd.size());
        to = quavera::CopyText(text, to);
        text_.SetEnd(quavera::CopyText(kLineEnd, to));
    }
    void Display(RowName label, const std::wstring& text) {
        text_.SetEnd(Begin(label, 0));
        EndWith(text);
    }
    void DisplayAfter(RowName label, const std::wstring& text) {
        text_.Append(label);
        EndWith(text);
    }
    QUAVERA_INLINE_FOR_SPEED void Number(RowName label, int value) { Decimal(label, value); }
    void Unsigned(RowName label, unsigned long value) { Decimal(label, value); }
    void Flag(RowName label, bool value) { Plain(label, zq::ToString(value)); }
    void Each(RowName label, const std::vector<std::string>& texts);
    void Unbroken(RowName prefix, const std::vector<std::string>& texts);

    // Records: by their AddLines, see records/Nested.h.

    template <class Record>
    void Nested(RowName label, const Record& record) {
        text_.SetEnd(Begin(label, 0));
        AddLines(record, *this);
        text_.Append(kLineEnd);
    }
    template <class Item>
    void Records(RowName prefix, const std::vector<Item>& items) {
        const std::size_t start = text_.Size();
        for (const Item& item : items) {
            text_.Append(prefix);
            AddLines(item, *this);
            if (&item == &items.front()) {
                ExpectItems(items.size(), text_.Size() - start);
            }
        }
    }
    template <class Record>
    void Of(const Record& record) {
        AddLines(record, *this);
    }

    std::string Take() { return text_.Take(); }

 private:
    static constexpr std::string_view kEquals = " = ";
    static constexpr std::string_view kLineEnd = "\r\n";

    template <class Integer>
    void Decimal(RowName label, Integer value) {
        text_.SetEnd(Begin(label, 0));
        quavera::Nodes::AppendDecimal(value, &text_);
        text_.Append(kLineEnd);
    }
    /// Begins a line. Returns the place behind it, with room for that many bytes: looking at the
    /// room once for each line saves 8 % of a log text.
    char* Begin(RowName label, std::size_t room) {
        char* const to = text_.Reserve(label.size() + kEquals.size() + room);
        return quavera::CopyText(kEquals, quavera::CopyText(label, to));
    }
    void EndWith(const std::wstring& text) {
        quavera::AppendNarrow(text, &text_);
        text_.Append(kLineEnd);
    }
    /// Makes room for items, by the size of the first one: saves 34 % of a log text. Up to what is
    /// typical, or one long item would take as much for each of the others.
    void ExpectItems(std::size_t count, std::size_t firstSize);

    quavera::TextBuffer text_;
};

/// Whether `node` is an element of that name; a null one is not.
bool IsNamed(ZQXML::INode* node, const std::string& name);

/// The first child of that name; null where there is none, or no node.
ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& name);

#endif  // QUAVERA_RECORDS_FIELDS_H_
