#include "tools/RecordShape.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <utility>

#include "common/Export.h"
#include "platform/zqshared.h"
#include "records/RowName.h"
#include "records/SoapRecords.h"
#include "soap/QuaveraStub.h"

// The sources of the records are compiled here once more, in a namespace of their own and with
// other verbs: their rows write and read nothing, they note themselves on a page. So what is told
// of a record cannot drift from what it does.

// In place of the verbs that the library is compiled with.
#define QUAVERA_RECORDS_FIELDS_H_

namespace tool {

const ElementShape* FindElement(const RecordShape& shape, std::string_view name) {
    const auto found = std::find_if(shape.begin(), shape.end(),
                                    [name](const ElementShape& each) { return each.name == name; });
    return found == shape.end() ? nullptr : &*found;
}

namespace rows {
namespace {

/// What is being noted. The innermost one takes the notes; shapes are made by one thread.
class Page {
 public:
    Page() : outer_(std::exchange(innermost, this)) {}
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;
    ~Page() { innermost = outer_; }

    static ElementShape* Note(std::string_view name, Content content) {
        ElementShape element;
        element.name = name;
        element.content = element.readAs = content;
        innermost->shape_.push_back(std::move(element));
        return &innermost->shape_.back();
    }

    RecordShape Take() { return std::move(shape_); }

 private:
    static Page* innermost;

    Page* outer_;
    RecordShape shape_;
};

Page* Page::innermost = nullptr;

/// What `work` notes.
template <class Work>
RecordShape NotesOf(const Work& work) {
    Page page;
    work();
    return page.Take();
}

/// What `Writer` writes of a SOAP record, in which nothing is present: rows note themselves all the
/// same.
template <class Writer, class Soap>
RecordShape WrittenBy() {
    return NotesOf([] {
        Soap soap;
        Writer::ToXML(nullptr, &soap);
    });
}

template <class Record>
RecordShape ReadBy() {
    return NotesOf([] { Record().FromXML(nullptr); });
}

}  // namespace

zq::auto_com<ZQXML::INode> NewElement(RowName /*name*/) {
    return nullptr;
}

template <class Writer, class Soap>
zq::auto_com<ZQXML::INode> NewElementWith(RowName name, Soap* soap) {
    Writer::ToXML(nullptr, soap);
    return NewElement(name);
}

bool IsNamed(ZQXML::INode* /*node*/, const std::string& /*name*/) {
    return true;
}

ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& /*name*/) {
    return node;
}

template <class Wrapper>
const int* CountOf(const Wrapper* /*wrapper*/) {
    return nullptr;
}

template <class Wrapper>
int CountItems(const Wrapper* /*wrapper*/) {
    return 0;
}

class ElementWriter {
 public:
    explicit ElementWriter(ZQXML::INode* /*element*/) {}

    void Plain(RowName name, const std::string* /*text*/) { Page::Note(name, Content::kText); }
    void String(RowName name, const std::string* text) { Plain(name, text); }
    void Display(RowName name, const std::string* /*text*/) { Page::Note(name, Content::kDisplay); }
    void HexLetter(RowName name, const std::string* /*text*/) {
        Page::Note(name, Content::kLetter);
    }
    void Number(RowName name, const int* value) { Decimal(name, value); }
    void NumberUnlessZero(RowName name, int /*value*/) {
        Page::Note(name, Content::kNumber)->writtenIf = "unless zero";
    }
    void Unsigned(RowName name, const unsigned long* value) { Decimal(name, value); }
    void DecimalString(RowName name, const int* value) { Decimal(name, value); }
    template <class Integer>
    void Decimal(RowName name, const Integer* value) {
        const bool isSigned = std::is_signed_v<Integer>;
        ElementShape* const element =
            Page::Note(name, isSigned ? Content::kNumber : Content::kUnsigned);
        if (value != nullptr) {  // no pointer in the SOAP record, in which nothing is present
            element->writtenIf = "always";
        }
    }
    void Flag(RowName name, const bool* /*value*/) { Page::Note(name, Content::kFlag); }
    void FlagIfTrue(RowName name, bool /*value*/) {
        Page::Note(name, Content::kFlag)->writtenIf = "if true";
    }

    template <class Writer, class Soap>
    void Nested(RowName name, Soap* /*soap*/) {
        Page::Note(name, Content::kRecord)->elements = WrittenBy<Writer, Soap>();
    }
    template <class Writer, class Wrapper>
    ElementShape* Records(RowName name, RowName itemName, const Wrapper* /*wrapper*/) {
        using Soap =
            std::remove_pointer_t<std::remove_pointer_t<decltype(std::declval<Wrapper>().items)>>;
        ElementShape* const list = Page::Note(name, Content::kRecords);
        list->item = itemName;
        list->elements = WrittenBy<Writer, Soap>();
        return list;
    }
    template <class Writer, class Wrapper>
    void RecordsAlways(RowName name, RowName itemName, const Wrapper* wrapper) {
        Records<Writer>(name, itemName, wrapper)->writtenIf = "always";
    }
    template <class Wrapper>
    void Values(RowName name, const Wrapper* /*wrapper*/) {
        Page::Note(name, Content::kTexts)->item = "Value";
    }
    void ValuesUnlessEmpty(RowName name, const std::vector<std::string>& texts) {
        Values(name, &texts);
    }
    template <class Wrapper>
    void Each(RowName name, const Wrapper* /*wrapper*/) {
        Page::Note(name, Content::kText)->isRepeated = true;
    }
};

class ChildReader {
 public:
    explicit ChildReader(ZQXML::INode* /*element*/) {}

    /// There is one pass over the rows.
    bool Next() { return !std::exchange(isAtEnd_, true); }
    bool Next(RowName /*name*/) { return Next(); }
    static ZQXML::INode* Child() { return nullptr; }

    void Plain(RowName name, const std::string& /*field*/) { Page::Note(name, Content::kText); }
    void Display(RowName name, const std::wstring& /*field*/) {
        Page::Note(name, Content::kDisplay);
    }
    void HexLetter(RowName name, const std::string& /*field*/) {
        Page::Note(name, Content::kLetter);
    }
    void Number(RowName name, const int& /*field*/) { Page::Note(name, Content::kNumber); }
    template <class Integer>
    void Unsigned(RowName name, const Integer& /*field*/) {
        Page::Note(name, Content::kUnsigned);
    }
    void Flag(RowName name, const bool& /*field*/) { Page::Note(name, Content::kFlag); }

    template <class Item>
    void Nested(RowName name, const Item& /*field*/) {
        Page::Note(name, Content::kRecord)->elements = ReadBy<Item>();
    }
    template <class Item>
    void Records(RowName name, const std::vector<Item>& /*field*/) {
        Page::Note(name, Content::kRecords)->elements = ReadBy<Item>();
    }
    template <class Item>
    void RecordsNamed(RowName name, RowName itemName, const std::vector<Item>& /*field*/) {
        ElementShape* const list = Page::Note(name, Content::kRecords);
        list->item = itemName;
        list->isItemOfOneName = true;
        list->elements = ReadBy<Item>();
    }
    void Values(RowName name, const std::vector<std::string>& /*field*/) {
        Page::Note(name, Content::kTexts);
    }
    void Each(RowName name, const std::vector<std::string>& /*field*/) {
        Page::Note(name, Content::kText)->isRepeated = true;
    }
    void EachDecoded(RowName name, const std::vector<std::string>& /*field*/) {
        Page::Note(name, Content::kMarkedText)->isRepeated = true;
    }

 private:
    bool isAtEnd_ = false;
};

/// Notes lines in place of writing them.
class TextLines {
 public:
    void Plain(RowName label, const std::string& /*text*/) { Line(label, Content::kText); }
    void Display(RowName label, const std::wstring& /*text*/) { Line(label, Content::kDisplay); }
    void DisplayAfter(RowName label, const std::wstring& /*text*/) {
        Note(label, Content::kDisplay);
    }
    void Number(RowName label, int /*value*/) { Line(label, Content::kNumber); }
    void Unsigned(RowName label, unsigned long /*value*/) { Line(label, Content::kUnsigned); }
    void Flag(RowName label, bool /*value*/) { Line(label, Content::kFlag); }
    void Each(RowName label, const std::vector<std::string>& /*texts*/) {
        Line(label, Content::kText)->isRepeated = true;
    }
    void Unbroken(RowName prefix, const std::vector<std::string>& /*texts*/) {
        LineShape* const line = Note(prefix, Content::kText);
        line->isRepeated = true;
        line->isBroken = false;
    }

    template <class Record>
    void Nested(RowName label, const Record& /*record*/) {
        Line(label, Content::kRecord)->lines = LinesOf<Record>();
    }
    template <class Item>
    void Records(RowName prefix, const std::vector<Item>& /*items*/) {
        LineShape* const list = Note(prefix, Content::kRecords);
        list->isBroken = false;
        list->lines = LinesOf<Item>();
    }
    template <class Record>
    void Of(const Record& record) {
        AddLines(record, *this);
    }

    std::string Take() { return {}; }  // records are made for their rows: none is printed

    template <class Record>
    static TextShape LinesOf() {
        TextLines lines;
        lines.Of(Record());
        return std::move(lines.shape_);
    }

 private:
    LineShape* Line(RowName label, Content content) {
        LineShape* const line = Note(label, content);
        line->label += " = ";
        return line;
    }
    LineShape* Note(std::string_view label, Content content) {
        LineShape line;
        line.label = label;
        line.content = content;
        shape_.push_back(std::move(line));
        return &shape_.back();
    }

    TextShape shape_;
};

// NOLINTBEGIN(bugprone-suspicious-include): they are the records' rows
#include "records/RecordHeaders.h"
// The functions that they declare for each other.
#include "records/Nested.h"
// And the rows.
#include "RecordSources.h"
// NOLINTEND(bugprone-suspicious-include)

namespace {

RecordShape Merge(RecordShape written, RecordShape read);

/// The element that is written as `element`, if it is, and read as `read`.
void AddReading(ElementShape read, ElementShape* element) {
    element->isRead = true;
    element->readAs = read.readAs;
    element->isItemOfOneName = read.isItemOfOneName;
    element->elements = Merge(std::move(element->elements), std::move(read.elements));
}

RecordShape Merge(RecordShape written, RecordShape read) {
    for (ElementShape& element : written) {
        element.isWritten = true;
    }
    for (ElementShape& each : read) {
        auto same =
            std::find_if(written.begin(), written.end(),
                         [&each](const ElementShape& other) { return other.name == each.name; });
        if (same == written.end()) {
            same = written.insert(same, each);
            same->elements.clear();  // they are read, not written
        }
        AddReading(std::move(each), &*same);
    }
    return written;
}

template <class Record, class Soap>
RecordShape ShapeOfRecord() {
    RecordShape written = NotesOf([] {
        Soap soap;
        Record::ToXML(&soap);
    });
    return Merge(std::move(written), ReadBy<Record>());
}

}  // namespace
}  // namespace rows

const RecordShape& ShapeOf(std::string_view recordClass) {
    static const std::map<std::string_view, RecordShape> shapes = {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) \
    {#Class, rows::ShapeOfRecord<rows::Class, Quavera::Soap>()},
#include "records/Records.def"
    };
    return shapes.find(recordClass)->second;
}

const TextShape& TextOf(std::string_view recordClass) {
    static const std::map<std::string_view, TextShape> texts = {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) \
    {#Class, rows::TextLines::LinesOf<rows::Class>()},
#include "records/Records.def"
    };
    return texts.find(recordClass)->second;
}

}  // namespace tool
